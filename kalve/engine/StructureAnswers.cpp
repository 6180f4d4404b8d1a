// The structure below an entity, as the user interface reads it. The tables are read directly, so that no
// entity, however built, can end the run here.
#include <algorithm>
#include <cstring>
#include <iostream>
#include <memory>
#include <vector>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

namespace {

/// One answer: the words on its way down, so that a structure that holds itself comes to an end.
class StructureAnswer {
 public:
  void Write(const char* word, bool descends, bool partsDescend) {
    if (std::strcmp(word, "ROOT") == 0)
      WriteRoot(partsDescend);
    else
      WriteEntity(word, descends, partsDescend);
    std::cout << "} ";
  }

 private:
  void WritePart(const char* word, bool descends) { Write(word, descends, descends); }

  void WriteRoot(bool partsDescend) {
    std::cout << "ROOT FREE {";
    const std::unique_ptr<Tableau<BasicEntity*>> entities(GetFreeEntityList());
    for (const BasicEntity* entity : *entities)
      if (entity->GetMetaClassInstance()->IsUserInstantiable() != 0)
        WritePart(entity->InstanceName(), partsDescend);
  }

  void WriteEntity(const char* word, bool descends, bool partsDescend) {
    const BasicEntity* const entity = GetNamedEntity(word);
    const bool isOpen = entity != nullptr && descends && std::ranges::count(mPath, entity) == 0;
    std::cout << word << " ";
    mPath.push_back(entity);
    if (isOpen && !entity->BareElementTab().empty())
      WriteParts("ELEM {", entity->BareElementTab(), "missing_element", partsDescend);
    else if (isOpen && !entity->BareComponentTab().empty())
      WriteParts("COMP {", entity->BareComponentTab(), "missing_component", partsDescend);
    else
      std::cout << "VOID {";
    mPath.pop_back();
  }

  void WriteParts(const char* opening, const Tableau<BasicEntity*>& parts, const char* missing,
                  bool partsDescend) {
    std::cout << opening;
    for (const BasicEntity* part : parts)
      WritePart(IsLivingEntity(part) ? part->InstanceName() : missing, partsDescend);
  }

  std::vector<const BasicEntity*> mPath;
};

}  // namespace

void Simulation::SendStringForWord(const char* word) { StructureAnswer().Write(word, true, true); }

void Simulation::SendStringForWord(const char* word, int depth) {
  StructureAnswer().Write(word, depth != 0, false);
}
