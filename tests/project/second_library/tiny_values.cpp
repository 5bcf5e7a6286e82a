// SPDX-License-Identifier: Apache-2.0
//
// The tiny library's variants, version, free functions, and what is not virtual on the two sides.

#include "data_access/OrvConsumer.h"
#include "data_access/OrvProvider.h"
#include "data_access/OrvUtilities.h"
#include "data_access/OrvVersion.h"

#include "tests/project/second_library/TinyState.h"

namespace velto {

// --- Variants -----------------------------------------------------------------------------------

OrvVariant OrvVariant::State::make(const std::string& text) {
  OrvVariant variant;
  variant.state_ = std::make_unique<State>(State{text});
  return variant;
}

OrvVariant::OrvVariant() = default;
OrvVariant::OrvVariant(const OrvVariant& other)
    : state_(other.state_ ? std::make_unique<State>(*other.state_) : nullptr) {}
OrvVariant::OrvVariant(OrvVariant&& other) noexcept = default;
OrvVariant& OrvVariant::operator=(const OrvVariant& other) {
  if (this != &other) {
    *this = OrvVariant(other);
  }
  return *this;
}
OrvVariant& OrvVariant::operator=(OrvVariant&& other) noexcept = default;
OrvVariant::~OrvVariant() = default;

bool OrvVariant::isValid() const { return state_ != nullptr; }
std::string OrvVariant::asString() const { return state_ ? state_->text : ""; }
std::vector<std::string> OrvVariant::asStringVector() const {
  std::vector<std::string> values;
  OrvUtilities::splitString(asString(), values, true, ',');
  return values;
}
OrvVariant::operator std::vector<std::string>() const { return asStringVector(); }

// --- Version and free functions -----------------------------------------------------------------

unsigned int OrvVersion::getMajor() { return 7; }
unsigned int OrvVersion::getMinor() { return 0; }
unsigned int OrvVersion::getPatch() { return 0; }

bool OrvUtilities::splitString(const std::string& text, std::vector<std::string>& parts, bool flag,
                               char separator) {
  std::string piece;
  bool appended = false;
  for (const char character : text + separator) {
    if (character != separator) {
      piece += flag && character == ' ' ? "" : std::string(1, character);
    } else if (!flag || !piece.empty()) {
      parts.push_back(std::exchange(piece, {}));
      appended = true;
    }
  }
  return appended;
}

// --- The two sides ------------------------------------------------------------------------------

bool OrvProvider::hasTarget(OrvTargetCategory category) const { return category == targetRestart; }
OrvVariant OrvProvider::getSettings(OrvDataClass /*dataClass*/, const std::string& path,
                                    short /*flag*/) const {
  return path == "library" ? OrvVariant::State::make("tiny") : OrvVariant();
}
bool OrvProvider::getVariableId(const std::string& /*name*/, int& /*id*/) const { return false; }
void OrvConsumer::setLocationModel(const OrvLocationModel* model) const {
  State::of(*this).locationModel =
      model == nullptr ? nullptr : OrvLocationModel::State::copy(*model);
}

}  // namespace velto
