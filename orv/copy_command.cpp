// SPDX-License-Identifier: Apache-2.0
//
// orv copy: carries a case into another file and format.

#include <fmt/format.h>
#include <iostream>
#include <string>
#include <utility>

#include "velto/OrvCopier.h"

#include "data_access/OrvFactory.h"
#include "data_access/OrvVersion.h"

#include "orv/CaseComparison.h"
#include "orv/CaseSummary.h"
#include "orv/CopyPlan.h"
#include "orv/CopyWatch.h"
#include "orv/InterruptWatch.h"
#include "orv/ProgressBar.h"
#include "orv/StoppableBar.h"
#include "orv/commands.h"
#include "orv/copy_files.h"
#include "orv/copy_report.h"
#include "orv/hints.h"
#include "orv/open_case.h"

namespace velto::orv {

namespace {

// --- The copy -----------------------------------------------------------------------------------

/// A copy under way: the case first, then its results.
class Copying {
 public:
  Copying(OrvFileProvider& source, const CopyFiles& files, const CopyPlan& plan,
          const CopyOptions& options)
      : source_(source),
        files_(files),
        plan_(plan),
        options_(options),
        destination_(getDataConsumer(files.format->type)) {
    destination_->setFileName(files.destination, dataClassCase);
    destination_->setFileName(files.destinationResults, dataClassResults);
    destination_->setCompression(options.compression);
    if (options.text) {
      destination_->setMode(1);
    }
  }

  /// False, and said why on standard error, if not all of it is where it should be.
  bool run() {
    return carry("nothing was written", [this] { carryCase(); }) &&
           (plan_.results.variables == 0 ||
            carry("the case was written, its results were not", [this] { carryResults(); }));
  }

  /// Whether something of the source could not be read.
  bool sourceFailed() const { return sourceFailed_; }

 private:
  OrvCopier makeCopier(const PlannedMesh& mesh) {
    OrvCopier copier(std::string("orv ") + ORV_VERSION);
    copier.setSource(&source_);
    copier.setDestination(destination_.get());
    copier.setDestinationSolverFormat(plan_.solverFormat);
    copier.setVerbose(options_.verbose);
    copier.copyMeshSizeToDestination(options_.meshSize);
    copier.copyMeshUnitsToDestination(options_.units);
    copier.copyZoneTopologyToDestination(options_.zones);
    copier.copyNodeCoordinatesToDestination(options_.nodes);
    copier.copyCellsToDestination(options_.cells, options_.cellNodes, options_.cellTypes);
    copier.copyCellPartitionsToDestination(options_.cellPartitions);
    copier.copyFacesToDestination(options_.faces, options_.faceNodes, options_.faceCells);
    select(source_, mesh.inSource);
    select(*destination_, mesh.inCopy);
    return copier;
  }

  void carryCase() {
    destination_->startWriting(dataClassCase);
    bool isFirst = true;
    for (const PlannedMesh& mesh : plan_.meshes) {
      OrvCopier copier = makeCopier(mesh);
      // Model and settings are those of the whole case.
      copier.copyLocationModelToDestination(isFirst && plan_.model != CopyPlan::Model::none);
      copier.copySettingsToDestination(isFirst && options_.settings);
      copier.copyCase(false);
      isFirst = false;
    }
    destination_->endWriting(dataClassCase);
  }

  void carryResults() { makeCopier(plan_.meshes[plan_.results.mesh]).copyResults(); }

  template <class Step>
  bool carry(const std::string& otherwise, const Step& step) {
    bool isDone = false;
    {
      ProgressBar bar(!options_.verbose);
      const CopyWatch watch(bar, source_, *destination_, plan_.bytes(), options_.keepGoing);
      try {
        step();
        isDone = !destination_->hasError();
      } catch (const CopyStopped&) {
        isDone = false;
      }
    }
    sourceFailed_ = sourceFailed_ || source_.hasError();
    printMessages(source_, files_.source);
    printMessages(*destination_, files_.destination);
    if (!isDone) {
      destination_.reset();  // drops what is half written
      const bool isStuck = sourceFailed_ && !options_.keepGoing;
      tell(files_.destination, (InterruptWatch::isInterrupted() ? "interrupted; " : "") +
                                   otherwise +
                                   (isStuck ? "; --keep-going copies what can be read" : ""));
    }
    return isDone;
  }

  OrvFileProvider& source_;
  const CopyFiles& files_;
  const CopyPlan& plan_;
  const CopyOptions& options_;
  ConsumerOwner destination_;
  bool sourceFailed_ = false;
};

// --- Verifying ----------------------------------------------------------------------------------

/// Reads the copy back and compares what was to be copied.
CaseComparison compared(OrvFileProvider& source, OrvFileProvider& copy, const CopyPlan& plan,
                        const CopyOptions& options) {
  CaseComparison comparison(source, copy);
  comparison.onArray(InterruptWatch::stopIfInterrupted);
  for (const PlannedMesh& mesh : plan.meshes) {
    comparison.compareMesh(mesh.inSource, mesh.inCopy);
  }
  if (plan.results.variables != 0) {
    const PlannedMesh& mesh = plan.meshes[plan.results.mesh];
    comparison.compareResults(mesh.inSource, mesh.inCopy);
  }
  if (plan.model == CopyPlan::Model::carried) {
    comparison.compareModel(plan.meshes.front().inSource.mesh);
  }
  if (options.settings) {
    comparison.compareSettings();
  }
  return comparison;
}

/// Says on standard error in what the copy differs from its source; true if in nothing.
bool verify(OrvFileProvider& source, const CopyFiles& files, const CopyPlan& plan,
            const CopyOptions& options) {
  const ProviderOwner copy = openCase(files.destination);
  const bool hasResults = plan.results.variables != 0;
  if (!copy || !openResults(hasResults ? files.destinationResults : "", *copy)) {
    return false;
  }
  try {
    const CaseComparison comparison = compared(source, *copy, plan, options);
    for (const std::string& difference : comparison.differences()) {
      std::cerr << "orv: differs: " << shownText(difference) << std::endl;
    }
    const std::size_t more = comparison.differenceCount() - comparison.differences().size();
    if (more != 0) {
      std::cerr << "orv: differs: and " << more << " more" << std::endl;
    }
    printMessages(source, files.source);
    printMessages(*copy, files.destination);
    return comparison.differenceCount() == 0 && !copy->hasError();
  } catch (const Interrupted&) {
    tell(files.destination, "interrupted; written, and not verified");
    return false;
  }
}

/// Copies, and verifies what was written if that is asked for.
CopyOutcome carryOut(OrvFileProvider& source, const CopyFiles& files, const CopyPlan& plan,
                     const CopyOptions& options) {
  Copying copying(source, files, plan, options);
  CopyOutcome outcome;
  outcome.isWritten = copying.run();
  outcome.isWhole = !copying.sourceFailed();
  outcome.isVerified = outcome.isWritten && options.verify && verify(source, files, plan, options);
  return outcome;
}

ExitStatus statusOf(const CopyOutcome& outcome, bool isVerifyWanted) {
  if (!outcome.isWritten || (isVerifyWanted && !outcome.isVerified)) {
    return exitNotDone;
  }
  return outcome.isWhole ? exitSound : exitErrors;
}

/// The open source with its results, or null after saying why not.
ProviderOwner openSource(const CopyFiles& files, bool isBarWanted) {
  const StoppableBar bar(isBarWanted);
  ProviderOwner source = openCase(files.source);
  const bool isOpen = source && openResults(files.sourceResults, *source);
  return isOpen ? std::move(source) : nullptr;
}

/// What a later version added is not known here, and not carried.
void tellNewerVersion(const CaseSummary& summary) {
  if (summary.major > static_cast<int>(OrvVersion::getMajor())) {
    tell(summary.file,
         fmt::format("is of version {}.{}.{}, which is newer than this program; what is "
                     "new in it is not copied",
                     summary.major, summary.minor, summary.patch));
  }
}

int copyFiles(const CopyOptions& options) {
  CopyFiles files = chooseFiles(options);
  const ProviderOwner source = openSource(files, !options.verbose);
  if (!source) {
    return exitNotDone;
  }
  const CaseSummary summary = summarise(files.source, *source);
  tellNewerVersion(summary);
  const CopyPlan plan = planCopy(*source, summary, options, *files.format);
  InterruptWatch::stopIfInterrupted();
  settleFiles(files, plan, options);
  const auto print = options.json ? printCopyJson : printCopyText;
  if (options.dryRun) {
    printMessages(*source, files.source);
    print(files, plan, options, {});
    return exitSound;
  }
  const CopyOutcome outcome = carryOut(*source, files, plan, options);
  print(files, plan, options, outcome);
  return statusOf(outcome, options.verify);
}

}  // namespace

int runCopy(const CopyOptions& options) {
  const InterruptWatch watch;
  try {
    return copyFiles(options);
  } catch (const Interrupted&) {
    tell(options.destination, "interrupted; nothing was written");
    return exitNotDone;
  }
}

}  // namespace velto::orv
