// The classes of a farm and one that has a descriptor of each type, for the files that build entities or
// speak of them.
#pragma once

#include "tests/parsers/FarmClasses.h"
#include "tests/parsers/RandomInput.h"
#include "tests/support/AllValues.h"

inline constexpr int BULL = UDDER + 1;
inline constexpr int READY = 70;

/// Stands by itself, with a descriptor of each type and a predicate.
class Bull : public Entity {
 public:
  Bull() {
    AddAllValues(*this);
    static_cast<IntVariableDescriptor*>(GetDescriptor("anInt"))->SetSubDomain(0, 50);
    static_cast<FloatConstantDescriptor*>(GetDescriptor("aFloat"))->SetSubDomain(-10.0F, 20.0F);
    static_cast<EntityConstantDescriptor*>(GetDescriptor("anEntity"))->ValueClassId(COW);
    static_cast<EntityTabVariableDescriptor*>(GetDescriptor("someEntities"))->ValueClassId(KV_ENTITY);
    AddMethod(new EntityPredicate(READY, "isReady"));
    SetMetaClass(BULL);
    AddInstanceToClass();
  }
};

class FarmTest : public RandomInput {
 protected:
  FarmTest() {
    BasicEntity::mInstanceNumber = 0;
    InstallFarmClasses();
    CreateMetaClass(BULL, "Bull")->SetParentClassId(KV_ENTITY);
    SetHierarchy();
    Assign_App_NewEntityFromStringFunction([](const char* className) -> Entity* {
      return std::string(className) == "Bull" ? new Bull : NewFarmEntity(className);
    });
  }
  ~FarmTest() override {
    DeleteEntitySpecs();
    for (int id = gMetaClassTab.size(); id-- > KV_PROCESS;)
      while (GetNumberOfEntities(id) > 0) DeleteEntity(GetMetaClass(id)->GetInstance(0));
    DeleteParameters();
    for (MetaClass* metaClass : gMetaClassTab) delete metaClass;
    gMetaClassTab.erase();
    gMetaClassIdTab.erase();
    Assign_App_NewEntityFromStringFunction(nullptr);
  }

  static void SetParameter(ValueTypeId type, const char* name, UnifiedValue value) {
    CreateParameter(type, "Herd", name, value);
  }
  /// "name(part part) ", the parts likewise.
  static std::string Tree(const BasicEntity* entity) {
    std::string parts;
    for (const BasicEntity* part :
         entity->HasComponents() ? entity->GetComponentTab() : entity->GetElementTab())
      parts += part != nullptr ? Tree(part) : "- ";
    if (!parts.empty()) parts = "(" + parts.substr(0, parts.size() - 1) + ")";
    return entity->InstanceName() + parts + " ";
  }
  static std::string TreeOf(const char* name) { return Tree(GetNamedEntity(name)); }
  /// "name name ", of all that the selection gives now.
  static std::string Selected(const char* name) {
    EntitySpec* spec = GetNamedEntitySpec(name);
    if (spec == nullptr) return "no selection";
    spec->Expand();
    std::string names;
    for (const BasicEntity* entity : *spec->GetExpansion())
      names += std::string(entity->InstanceName()) + " ";
    return names;
  }
  /// What a failing reading leaves behind goes with its process.
  std::string ReadQuietly(void (*parse)(const char*), const std::string& bytes) {
    folder.Write("f", bytes);
    return RunInChild([&] {
             leaksDoNotMatter = 1;
             parse(path.c_str());
           })
        .output;
  }
  /// A case ends in the whole text of its fault, or in a failure that begins with it.
  void ExpectFault(void (*parse)(const char*), const FaultCase& c) {
    EXPECT_EQ(ReadQuietly(parse, c.bytes), Fault(c.line, c.what)) << c.bytes;
  }
  void ExpectFailure(void (*parse)(const char*), const FaultCase& c) {
    const std::string output = ReadQuietly(parse, c.bytes);
    EXPECT_EQ(output.substr(0, Announced(path, c.line, c.what).size()), Announced(path, c.line, c.what))
        << c.bytes << output;
    EXPECT_TRUE(output.ends_with("\nERROR \n")) << output;
  }
};
