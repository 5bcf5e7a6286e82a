// SPDX-License-Identifier: Apache-2.0
//
// A location model as tables. Its ids count up from 1 through all kinds of objects, so that making
// the objects again in the order of the rows gives each of them its id again.

#include <functional>

#include "embedded/base/OrvLocationModelState.h"
#include "embedded/store/case_tables.h"

namespace velto::store {

using base::CaseError;
using layout::Kind;
using layout::ObjectListRow;
using layout::ObjectRow;
using State = OrvLocationModel::State;

namespace {

/// Values of ObjectListRow::key for composites.
enum MemberKind : int { memberBodies = 0, memberFaces = 1, memberFaceUses = 2 };

class ModelWriter {
 public:
  explicit ModelWriter(const State& model) : objects_(static_cast<std::size_t>(model.lastId)) {
    for (const auto& part : model.parts) {
      at(part.first) = {Kind::part, 0, 0, part.second.kind, texts_.add(part.second.name)};
      addComposites(model, part.first, part.second);
    }
    for (const auto& body : model.bodies) {
      at(body.first) = {Kind::body, body.second.part, 0, 0, texts_.add(body.second.name)};
      addLists(body.first, body.second.zones);
    }
    for (const auto& face : model.faces) {
      at(face.first) = {Kind::face, face.second.part, 0, 0, texts_.add(face.second.name)};
    }
    for (const auto& use : model.faceUses) {
      const State::Face& face = model.faces.at(use.second.face);
      const int side = face.sides[0] == use.first ? 0 : 1;
      at(use.first) = {Kind::faceUse, use.second.body, use.second.face, side,
                       texts_.add(use.second.name)};
      addLists(use.first, use.second.zoneSides);
    }
  }

  void write(Group& group) const {
    writeRows(group, "objects", layout::objectTable(), objects_);
    writeRows(group, "lists", layout::objectListTable(), rows_);
    lists_.write(group);
    texts_.write(group);
  }

 private:
  ObjectRow& at(int id) { return objects_.at(static_cast<std::size_t>(id) - 1); }

  void addComposites(const State& model, int partId, const State::Part& part) {
    for (const int id : part.composites.ids) {
      const State::Composite& composite = model.composites.at(id);
      at(id) = {Kind::composite, partId, 0, 0, texts_.add(composite.name)};
      lists_.add(rows_, {id, memberBodies}, composite.bodies);
      lists_.add(rows_, {id, memberFaces}, composite.faces);
      lists_.add(rows_, {id, memberFaceUses}, composite.faceUses);
    }
  }

  void addLists(int id, const std::map<int, std::vector<int>>& byMesh) {
    for (const auto& list : byMesh) {
      lists_.add(rows_, {id, list.first}, list.second);
    }
  }

  std::vector<ObjectRow> objects_;
  std::vector<ObjectListRow> rows_;
  TextWriter texts_;
  ListWriter lists_;
};

class ModelReader {
 public:
  explicit ModelReader(const Group& group)
      : group_(group),
        texts_(group),
        lists_(group),
        objects_(readRows<ObjectRow>(group, "objects", layout::objectTable())) {
    for (const auto& row : readRows<ObjectListRow>(group, "lists", layout::objectListTable())) {
      rows_[row.object].push_back(row);
    }
  }

  std::shared_ptr<const OrvLocationModel> read() {
    int id = 0;
    for (const ObjectRow& row : objects_) {
      ++id;
      int made = 0;
      if (!make(row, id, made) || made != id) {
        throw CaseError(group_.where("objects") + ": object " + std::to_string(id) +
                        " does not fit those before it");
      }
    }
    return model_;
  }

 private:
  bool make(const ObjectRow& row, int id, int& made) {
    const std::string name = texts_.text(row.name);
    switch (row.kind) {
      case Kind::part:
        model_->createPart(row.side, name, made);
        return true;
      case Kind::body:
        return model_->createBody(row.owner, name, made) &&
               eachList(id, [&](int mesh, const std::vector<int>& zones) {
                 model_->setBodyZones(made, mesh, zones);
               });
      case Kind::face:
        return model_->createFace(row.owner, name, made);
      case Kind::faceUse:
        return model_->createFaceUse(row.owner, row.face, row.side, made) &&
               (name.empty() || model_->setFaceUseName(made, name)) &&
               eachList(id, [&](int mesh, const std::vector<int>& sides) {
                 model_->setFaceUseZoneSides(made, mesh, sides);
               });
      case Kind::composite:
        made = makeComposite(row.owner, name, id);
        return true;
    }
    return false;
  }

  int makeComposite(int part, const std::string& name, int id) {
    State::Composite composite;
    composite.name = name;
    eachList(id, [&](int kind, const std::vector<int>& members) {
      std::vector<int>& list = kind == memberBodies  ? composite.bodies
                               : kind == memberFaces ? composite.faces
                                                     : composite.faceUses;
      list = members;
    });
    return State::of(*model_).addComposite(part, std::move(composite));
  }

  bool eachList(int id, const std::function<void(int, const std::vector<int>&)>& use) {
    for (const ObjectListRow& row : rows_[id]) {
      use(row.key, lists_.list(row));
    }
    return true;
  }

  const Group& group_;
  TextReader texts_;
  ListReader lists_;
  std::vector<ObjectRow> objects_;
  std::map<int, std::vector<ObjectListRow>> rows_;
  std::shared_ptr<OrvLocationModel> model_ = std::make_shared<OrvLocationModel>();
};

}  // namespace

void writeLocationModel(Group& root, const OrvLocationModel* model) {
  root.setCount("locationModel", model == nullptr ? 0 : 1);
  if (model != nullptr) {
    Group group = root.makeGroup("locationModel");
    ModelWriter(State::of(*model)).write(group);
  }
}

std::shared_ptr<const OrvLocationModel> readLocationModel(const Group& root) {
  if (requireCount(root, "locationModel") == 0) {
    return nullptr;
  }
  const Group group = root.openGroup("locationModel");
  return ModelReader(group).read();
}

}  // namespace velto::store
