// SPDX-License-Identifier: Apache-2.0
//
// Names as XML can hold them.

#ifndef VELTO_FORMATS_VTU_XML_TEXT_H
#define VELTO_FORMATS_VTU_XML_TEXT_H

#include <string>
#include <vector>

namespace velto::vtu {

/// A text as the value of an attribute in double quotes. What XML cannot hold, control characters
/// and bytes that are no UTF-8, becomes "?".
std::string xmlAttribute(const std::string& text);

/// Texts as the codes of their bytes with a 0 behind each, the form of a VTK array of strings.
std::string stringCodes(const std::vector<std::string>& texts);

}  // namespace velto::vtu

#endif  // VELTO_FORMATS_VTU_XML_TEXT_H
