// SPDX-License-Identifier: Apache-2.0
//
// make-polymesh: writes a box as a polyMesh folder, sound or with a named damage.

#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "testing/PolyMeshWriter.h"

namespace {

using velto::testing::BoxMesh;
using velto::testing::WriteOptions;

constexpr const char* kUsage =
    "usage: make-polymesh OUT NX NY NZ [--binary] [--gzip] [--label64] [--damage KIND]\n"
    "  OUT           the folder to write, made if necessary\n"
    "  NX NY NZ      cells along the axes, each at least 1\n"
    "  --damage KIND node-id: a node label beyond the points; owner: a cell label beyond the cells;\n"
    "                patch-gap: a boundary face in no patch; truncated: points cut short\n";

struct Request {
  std::string folder;
  std::vector<std::int64_t> cells;
  WriteOptions options;
  std::string damage;
};

bool readRequest(const std::vector<std::string>& arguments, Request& request) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    std::int64_t number = 0;
    const char* const end = argument.data() + argument.size();
    if (argument == "--binary") {
      request.options.binary = true;
    } else if (argument == "--gzip") {
      request.options.gzip = true;
    } else if (argument == "--label64") {
      request.options.labelBits = 64;
    } else if (argument == "--damage" && i + 1 < arguments.size()) {
      request.damage = arguments[++i];
    } else if (i == 0) {
      request.folder = argument;
    } else if (const auto [stop, error] = std::from_chars(argument.data(), end, number);
               error == std::errc() && stop == end && number > 0) {
      request.cells.push_back(number);
    } else {
      return false;
    }
  }
  return !request.folder.empty() && request.cells.size() == 3;
}

bool damage(const std::string& kind, BoxMesh& mesh) {
  if (kind == "node-id") {
    mesh.faceNodes.front() = mesh.pointCount() + 6;
  } else if (kind == "owner") {
    mesh.owner.back() = mesh.cellCount + 4;
  } else if (kind == "patch-gap") {
    mesh.patches[1].firstFace += 1;
    mesh.patches[1].faceCount -= 1;
  } else {
    return kind.empty() || kind == "truncated";
  }
  return true;
}

void cutPoints(const Request& request) {
  const std::string file = request.folder + "/points" + (request.options.gzip ? ".gz" : "");
  std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Request request;
    if (!readRequest({argv + 1, argv + argc}, request)) {
      std::fputs(kUsage, stderr);
      return 2;
    }
    BoxMesh mesh = velto::testing::makeBox(request.cells[0], request.cells[1], request.cells[2]);
    if (!damage(request.damage, mesh)) {
      std::fputs(kUsage, stderr);
      return 2;
    }
    velto::testing::writePolyMesh(request.folder, mesh, request.options);
    if (request.damage == "truncated") {
      cutPoints(request);
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make-polymesh: %s\n", error.what());
    return 2;
  }
}
