// SPDX-License-Identifier: Apache-2.0
//
// JsonWriter: writes a document while it is made, for reports of a million findings.

#ifndef VELTO_ORV_JSON_WRITER_H
#define VELTO_ORV_JSON_WRITER_H

#include <cstddef>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

namespace velto::orv {

/// Writes objects and arrays as they are opened and closed, each value in them on a line of its
/// own. Bytes that are no UTF-8 are replaced, so that the document stays valid.
class JsonWriter {
 public:
  /// Opens the object that is the document. The stream is not owned.
  explicit JsonWriter(std::ostream& out) : out_(out) { open("", '{'); }
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  /// Closes the document; what was opened within it has to be closed.
  ~JsonWriter() {
    close('}');
    out_ << std::endl;
  }

  /// In an object under a key, in an array without.
  void beginObject(const std::string& key = "") { open(key, '{'); }
  void beginArray(const std::string& key = "") { open(key, '['); }
  void endObject() { close('}'); }
  void endArray() { close(']'); }

  void write(const std::string& key, const nlohmann::ordered_json& value) {
    beginLine(key);
    out_ << textOf(value);
  }
  void write(const nlohmann::ordered_json& value) { write("", value); }

 private:
  static std::string textOf(const nlohmann::ordered_json& value) {
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  }

  void beginLine(const std::string& key) {
    if (depth_ > 0) {
      out_ << (isEmpty_ ? "\n" : ",\n") << std::string(2 * depth_, ' ');
    }
    isEmpty_ = false;
    if (!key.empty()) {
      out_ << textOf(key) << ": ";
    }
  }

  void open(const std::string& key, char bracket) {
    beginLine(key);
    out_ << bracket;
    ++depth_;
    isEmpty_ = true;
  }

  void close(char bracket) {
    --depth_;
    if (!isEmpty_) {
      out_ << '\n' << std::string(2 * depth_, ' ');
    }
    out_ << bracket;
    isEmpty_ = false;
  }

  std::ostream& out_;
  std::size_t depth_ = 0;
  bool isEmpty_ = true;
};

}  // namespace velto::orv

#endif  // VELTO_ORV_JSON_WRITER_H
