// SPDX-License-Identifier: Apache-2.0
//
// OrvLocationModel: the named objects of a case, tied to the zones of its meshes.

#ifndef VELTO_DATA_ACCESS_ORV_LOCATION_MODEL_H
#define VELTO_DATA_ACCESS_ORV_LOCATION_MODEL_H

#include <memory>
#include <string>
#include <vector>

namespace velto {

/// A topology over mesh zones, independent of any one mesh.
///
///     part            a name
///       body          a name; zones of each mesh: a cell zone and the interior face zones in it
///       face          a name; two sides, each empty or held by one face use
///       face use      a body on one side of a face; a name; zone sides of each mesh
///       composite     a name for some of the part's bodies, faces and face uses
///
/// Ids are integers that the model hands out, and 0 is never one of them. A zone side is a signed
/// face zone id: +id is side 0 of zone id, -id is side 1. Lists of zones and of zone sides are kept
/// for each mesh id, so one model can describe several meshes.
///
/// Queries that answer false (an unknown id, nothing of that kind) leave their output alone; lists
/// that they fill are replaced. Changes that answer false have changed nothing.
///
/// The four tools never ask for the name of a part, the faces of a part or the name of a face: a
/// data-access library that serves the tools alone can leave these three out.
class OrvLocationModel {
 public:
  /// What the data-access library keeps behind a model; declared here, defined by each library.
  struct State;

  /// An empty model, which counts as none until it has a part.
  OrvLocationModel();
  ~OrvLocationModel();
  OrvLocationModel(const OrvLocationModel&) = delete;
  OrvLocationModel& operator=(const OrvLocationModel&) = delete;

  /// @name Building
  /// Composites are not built: they come with models that are read.
  /// @{

  /// Adds a part. `kind` is a number of the caller's, which is kept and which no query tells;
  /// LocationModelBuilder takes 3.
  void createPart(int kind, const std::string& name, int& partId);

  /// Adds a body to a part; false if it cannot be defined, such as for a name that a body of the
  /// part has already.
  bool createBody(int partId, const std::string& name, int& bodyId);

  /// Adds a face with both sides empty; false as for a body.
  bool createFace(int partId, const std::string& name, int& faceId);

  /// Puts a new face use of a body on `side` (0 or 1) of a face of the same part. It joins the
  /// boundary of the body and the face uses of the part. False if the side is taken.
  bool createFaceUse(int bodyId, int faceId, int side, int& faceUseId);

  /// Replaces the zones of a body for one mesh: ids of cell zones and of face zones inside it.
  bool setBodyZones(int bodyId, int meshId, const std::vector<int>& zones);
  /// Replaces the zone sides of a face use for one mesh: +id for side 0 of a face zone, -id for
  /// side 1.
  bool setFaceUseZoneSides(int faceUseId, int meshId, const std::vector<int>& sides);

  /// Names a face use, in place of the name that it had.
  bool setFaceUseName(int faceUseId, const std::string& name);

  /// @}
  /// @name Finding by name
  /// @{

  /// True, and the id, if the part holds an object of that kind and name.
  bool findBody(int partId, const std::string& name, int& id) const;
  bool findComposite(int partId, const std::string& name, int& id) const;
  bool findFace(int partId, const std::string& name, int& id) const;
  /// As for the other kinds; but a face use without a name of its own is found by its relative
  /// name.
  bool findFaceUse(int partId, const std::string& name, int& id) const;

  /// @}
  /// @name Parts
  /// @{

  /// Replaces `ids` by the ids of all parts. A model without parts counts as no model.
  void getParts(std::vector<int>& ids) const;
  /// The name that createPart or the file gave.
  bool getPartName(int partId, std::string& name) const;
  /// Replaces `ids` by the part's bodies.
  bool getPartBodies(int partId, std::vector<int>& ids) const;
  /// Replaces `ids` by the part's faces.
  bool getPartFaces(int partId, std::vector<int>& ids) const;
  /// Replaces `ids` by the uses of all faces of the part.
  bool getPartFaceUses(int partId, std::vector<int>& ids) const;
  /// Replaces `ids` by the part's composites.
  bool getPartComposites(int partId, std::vector<int>& ids) const;

  /// @}
  /// @name Bodies
  /// @{

  /// The name of a body, which no other body of its part has.
  bool getBodyName(int bodyId, std::string& name) const;
  /// Replaces `faceUses` by the face uses on the body's boundary.
  bool getBodyBoundary(int bodyId, std::vector<int>& faceUses) const;
  /// The body's zones in one mesh; false if it has no place in that mesh.
  bool getBodyZones(int bodyId, int meshId, std::vector<int>& zones) const;

  /// @}
  /// @name Faces and face uses
  /// @{

  /// The name of a face, which no other face of its part has.
  bool getFaceName(int faceId, std::string& name) const;
  /// For each side of the face the face use that holds it, 0 for an empty side.
  bool getFaceSides(int faceId, int& side0, int& side1) const;
  /// The name that setFaceUseName gave, empty if none was given.
  bool getFaceUseName(int faceUseId, std::string& name) const;
  /// A name for a face use that has none of its own: made of its face's and its body's names, and
  /// unique within the part.
  bool getFaceUseRelativeName(int faceUseId, std::string& name) const;
  /// The zone sides of the face use in one mesh; false if it has no place in that mesh.
  bool getFaceUseZoneSides(int faceUseId, int meshId, std::vector<int>& sides) const;

  /// @}
  /// @name Composites
  /// @{

  /// The name of a composite, by which locations of physics objects refer to all its members.
  bool getCompositeName(int compositeId, std::string& name) const;
  /// Expands the composite into ids of its three kinds of members.
  bool resolveComposite(int compositeId, std::vector<int>& bodies, std::vector<int>& faces,
                        std::vector<int>& faceUses) const;

  /// @}

 private:
  std::unique_ptr<State> state_;
};

}  // namespace velto

#endif  // VELTO_DATA_ACCESS_ORV_LOCATION_MODEL_H
