// SPDX-License-Identifier: Apache-2.0
//
// What both sources of Hdf5.h need around a call of HDF5: a turn, silence, a reason when it fails.

#ifndef VELTO_EMBEDDED_STORE_HDF5_CALLS_H
#define VELTO_EMBEDDED_STORE_HDF5_CALLS_H

#include <hdf5.h>
#include <mutex>
#include <string>

#include "embedded/base/CaseError.h"
#include "embedded/store/Hdf5.h"

namespace velto::store {

/// HDF5 takes one thread at a time, and not every build of it sees to that by itself: each function
/// of Hdf5.h that calls it waits for its turn.
class Hdf5Turn {
 public:
  Hdf5Turn() : lock_(mutex()) {}

 private:
  static std::recursive_mutex& mutex() {
    static std::recursive_mutex only;
    return only;
  }

  std::lock_guard<std::recursive_mutex> lock_;
};

/// While it lives HDF5 prints no errors on this thread; whatever handler was there comes back.
class QuietErrors {
 public:
  QuietErrors() {
    H5Eget_auto2(H5E_DEFAULT, &handler_, &data_);
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
  }
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;
  ~QuietErrors() { H5Eset_auto2(H5E_DEFAULT, handler_, data_); }

 private:
  H5E_auto2_t handler_ = nullptr;
  void* data_ = nullptr;
};

/// How new datasets are made: without the time, so that equal cases give equal files.
inline Handle datasetCreation() {
  Handle creation(H5Pcreate(H5P_DATASET_CREATE), H5Pclose);
  H5Pset_obj_track_times(creation.id(), false);
  return creation;
}

/// The deepest reason that HDF5 has for its last failure.
inline std::string hdf5Reason() {
  std::string reason;
  const auto first = [](unsigned, const H5E_error2_t* error, void* text) -> herr_t {
    auto& kept = *static_cast<std::string*>(text);
    if (kept.empty() && error->desc != nullptr) {
      kept = error->desc;
    }
    return 0;
  };
  H5Ewalk2(H5E_DEFAULT, H5E_WALK_UPWARD, first, &reason);
  // Where the system refused something, its own words say all; HDF5 puts addresses around them.
  const std::string before = "error message = '";
  const std::size_t begin = reason.find(before);
  if (begin != std::string::npos) {
    const std::size_t words = begin + before.size();
    return reason.substr(words, reason.find('\'', words) - words);
  }
  return reason.empty() ? "HDF5 gives no reason" : reason;
}

/// Runs one HDF5 call and returns its result. If that is negative, throws CaseError: the place,
/// what could not be done, and why.
template <class Call>
auto hdf5(const std::string& where, const char* what, const Call& call) {
  const QuietErrors quiet;
  const auto result = call();
  if (result < 0) {
    throw base::CaseError(where + ": " + what + ": " + hdf5Reason());
  }
  return result;
}

/// The type of a number in memory and in the file; belongs to HDF5.
hid_t numberTypeId(NumberType type);

}  // namespace velto::store

#endif  // VELTO_EMBEDDED_STORE_HDF5_CALLS_H
