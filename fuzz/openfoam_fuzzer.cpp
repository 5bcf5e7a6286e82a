// SPDX-License-Identifier: Apache-2.0
//
// Fuzzes the OpenFOAM reader, and the writer with what was read: any files in a case folder.

#include <vector>

#include "velto/OrvChecker.h"
#include "velto/OrvCopier.h"

#include "formats/openfoam/OpenFoamConsumer.h"
#include "formats/openfoam/OpenFoamProvider.h"
#include "formats/openfoam/locate.h"
#include "fuzz/folder_text.h"
#include "fuzz/fuzzing.h"
#include "testing/TempFolder.h"
#include "testing/TestFactory.h"
#include "testing/capture.h"
#include "tests/store/read_everything.h"

namespace velto::testing {
namespace {

using openfoam::OpenFoamConsumer;
using openfoam::OpenFoamProvider;
using Texts = std::vector<std::string>;

void requireReason(const Texts& errors, const std::string& folder) {
  if (errors.size() != 1 || errors.front().rfind("Error:\n\t" + folder, 0) != 0) {
    fuzzing::found("a folder is refused without one reason that names it");
  }
}

void check(const std::string& folder) {
  const TestFactory factory([](const std::string&) { return new OpenFoamProvider; });
  const StreamCapture streams;
  OrvChecker checker;
  checker.setCheckLevel(2);
  checker.checkCase(folder);
}

/// A mesh that could be written can be read.
void copy(OrvFileProvider& source, const std::string& folder, int mode) {
  const StreamCapture streams;
  OpenFoamConsumer destination;
  destination.setMode(mode);
  destination.setFileName(folder, dataClassCase);
  OrvCopier copier("fuzzer");
  copier.setSource(&source);
  copier.setDestination(&destination);
  const bool isCopied = copier.copyCase(true) && destination.getErrors(true, true).empty();
  OpenFoamProvider written;
  if (isCopied && !written.startReading(folder, dataClassCase)) {
    for (const std::string& error : written.getErrors(true, true)) {
      fuzzing::found("what was written cannot be read: " + error);
    }
  }
}

}  // namespace
}  // namespace velto::testing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto::testing;
  static const TempFolder kFolder;
  const std::string folder = kFolder.path("case");
  velto::fuzzing::writeFolder({reinterpret_cast<const char*>(data), size}, folder);
  velto::openfoam::holdsMesh(folder);
  OpenFoamProvider provider;
  if (!provider.startReading(folder, velto::dataClassCase)) {
    requireReason(provider.getErrors(true, true), folder);
    return 0;
  }
  if (!readEverything(provider).tooLarge.empty()) {
    velto::fuzzing::found("a caller would have to allocate more than the files justify");
  }
  check(folder);
  velto::fuzzing::writeFolder({}, kFolder.path("copy"));
  copy(provider, kFolder.path("copy"), size % 2 == 0 ? 0 : 1);
  return 0;
}
