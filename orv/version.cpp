// SPDX-License-Identifier: Apache-2.0
//
// The versions of orv, of the compiler and of the libraries. CMake defines what begins with ORV_.

#include "orv/version.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <vector>

#include "factory/library_versions.h"

namespace velto::orv {

namespace {

/// Libraries of headers, and fmt, which would not link if it were another one than was built with.
std::vector<factory::LibraryVersion> ownLibraryVersions() {
  const auto same = [](const char* name, const std::string& version) {
    return factory::LibraryVersion{name, version, version};
  };
  return {
      same("CLI11", CLI11_VERSION),
      same("fmt", fmt::format("{}.{}.{}", FMT_VERSION / 10000, FMT_VERSION / 100 % 100,
                              FMT_VERSION % 100)),
      same("nlohmann-json", fmt::format("{}.{}.{}", NLOHMANN_JSON_VERSION_MAJOR,
                                        NLOHMANN_JSON_VERSION_MINOR, NLOHMANN_JSON_VERSION_PATCH))};
}

}  // namespace

std::string versionName() { return std::string("orv ") + ORV_VERSION; }

std::string versionText() {
  std::string text = versionName() + "\n";
  const auto addLine = [&text](const std::string& name, const std::string& value) {
    text += fmt::format("\n{:<15}{}", name, value);
  };
  addLine("compiler", ORV_COMPILER);
  addLine("build type", ORV_BUILD_TYPE);
  std::vector<factory::LibraryVersion> libraries = factory::libraryVersions();
  for (factory::LibraryVersion& own : ownLibraryVersions()) {
    libraries.push_back(own);
  }
  for (const factory::LibraryVersion& library : libraries) {
    addLine(library.name, library.running == library.built
                              ? library.built
                              : fmt::format("{} (built with {})", library.running, library.built));
  }
  return text;
}

}  // namespace velto::orv
