// SPDX-License-Identifier: Apache-2.0
//
// OrvVariant: nothing, a string or a list, and the conversions between them.

#include "data_access/OrvVariant.h"

#include "data_access/OrvUtilities.h"

#include "embedded/base/OrvVariantState.h"

namespace velto {

OrvVariant::OrvVariant() = default;
OrvVariant::~OrvVariant() = default;
OrvVariant::OrvVariant(OrvVariant&&) noexcept = default;
OrvVariant& OrvVariant::operator=(OrvVariant&&) noexcept = default;

OrvVariant::OrvVariant(const OrvVariant& other)
    : state_(other.state_ ? std::make_unique<State>(*other.state_) : nullptr) {}

OrvVariant& OrvVariant::operator=(const OrvVariant& other) {
  if (this != &other) {
    *this = OrvVariant(other);
  }
  return *this;
}

bool OrvVariant::isValid() const { return state_ != nullptr; }

std::string OrvVariant::asString() const {
  if (!state_) {
    return {};
  }
  if (!state_->isList) {
    return state_->text;
  }
  std::string joined;
  for (const std::string& value : state_->list) {
    joined += (joined.empty() ? "" : ",") + value;
  }
  return joined;
}

std::vector<std::string> OrvVariant::asStringVector() const {
  std::vector<std::string> values;
  if (!state_) {
    return values;
  }
  if (state_->isList) {
    values = state_->list;
  } else {
    OrvUtilities::splitString(state_->text, values, true, ',');
  }
  return values;
}

OrvVariant::operator std::vector<std::string>() const { return asStringVector(); }

}  // namespace velto
