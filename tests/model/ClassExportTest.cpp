// The class files, byte by byte.
#include <cstdlib>

#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/foundations/Records.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "tests/model/ModelTest.h"

namespace {

enum TestMember : int { WEIGHT = 18, OWNER = 19, CALVE = 61, MOO = 62 };

/// A file in memory.
class MemoryFile {
 public:
  MemoryFile() : mFile(open_memstream(&mBytes, &mSize)) {}
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() {
    std::fclose(mFile);
    std::free(mBytes);
  }
  FILE* Stream() { return mFile; }
  std::string Bytes() {
    std::fflush(mFile);
    return {mBytes, mSize};
  }

 private:
  char* mBytes = nullptr;
  std::size_t mSize = 0;
  FILE* mFile;
};

class ClassExportTest : public ModelTest {
 protected:
  ClassExportTest() {
    for (const char* name : {"@", "@", "@", "HERD", "ANIMAL", "COW", "BULL", "FARM", "UDDER"})
      ClassIdToCharTab.push_back(name);
    for (const char* name : {"WEIGHT", "OWNER"}) DescIdToCharTab.push_back(name);
    for (const char* name : {"CALVE", "MOO"}) MethodIdToCharTab.push_back(name);
    // Tests say which classes users may instantiate.
    for (MetaClass* metaClass : gMetaClassTab)
      if (metaClass != nullptr) metaClass->UserInstantiable(0);
  }
  ~ClassExportTest() override {
    for (auto* rows : {&descriptorRows, &methodRows})
      for (Tableau<int>* row : *rows) delete row;
  }

  static void ShowToUsers(std::initializer_list<int> ids) {
    for (int id : ids) GetMetaClass(id)->UserInstantiable(1);
  }
  /// What every described entity has counts as declared.
  void DeclareThePredefined() {
    for (int id : {INSTANT_ATTRIBUTE, CURRENT_ELEMENT_INDEX})
      push_back_in_row<int>(descriptorRows, id, KV_DESCRIPTED_ENTITY);
  }
  static Thing* WithWeight(Thing* entity) {
    entity->AddConstantDescriptor(new IntConstantDescriptor(WEIGHT, "weight"));
    return entity;
  }
  static Thing* WithOwner(Thing* entity) {
    entity->AddVariableDescriptor(new StringVariableDescriptor(OWNER, "owner"));
    return entity;
  }
  static Thing* WithMethod(Thing* entity, int id, const char* name) {
    entity->AddMethod(new EntityPredicate(id, name));
    return entity;
  }

  void Export() {
    WriteToCls(classFile.Stream(), descriptorFile.Stream(), methodFile.Stream(), descriptorRows, methodRows);
  }

  MemoryFile classFile;
  MemoryFile descriptorFile;
  MemoryFile methodFile;
  Tableau<Tableau<int>*> descriptorRows;
  Tableau<Tableau<int>*> methodRows;
};

TEST_F(ClassExportTest, WritesClassesWithWhatTheyAddToTheirAncestors) {
  ShowToUsers({KV_BASIC_ENTITY, KV_DESCRIPTED_ENTITY, KV_ENTITY, ANIMAL, COW});
  Thing* const animal = WithOwner(WithWeight(new Thing{ANIMAL}));
  WithMethod(animal, MOO, "moo")->GetMethod(MOO)->ClassShortComment("a \"sound\"");
  Thing* const cow = WithOwner(WithWeight(NewCow()));
  cow->AddVariableDescriptor(new DoubleVariableDescriptor(11, "temperature"));
  WithMethod(WithMethod(cow, CALVE, "calve"), MOO, "moo");

  Export();
  EXPECT_EQ(classFile.Bytes(),
            "\nEntity BasicEntity {"
            "\n\tClassSymbol\t\t: KV_BASIC_ENTITY"
            "\n\tClassName\t\t: basicEntity"
            "\n}"
            "\nEntity DescriptedEntity {"
            "\n\tClassSymbol\t\t: KV_DESCRIPTED_ENTITY"
            "\n\tClassName\t\t: descriptedEntity"
            "\n\tSetParentClassId\t: KV_BASIC_ENTITY"
            "\n"
            "\n\tAddConstantDescriptor\t: InstantAttribute   ---"
            "\n"
            "\n\tAddVariableDescriptor\t: CurrentElementIndex   ---"
            "\n}"
            "\nEntity Entity {"
            "\n\tClassSymbol\t\t: KV_ENTITY"
            "\n\tClassName\t\t: entity"
            "\n\tSetParentClassId\t: KV_DESCRIPTED_ENTITY"
            "\n}"
            "\nEntity Animal {"
            "\n\tClassSymbol\t\t: ANIMAL"
            "\n\tClassName\t\t: Animal"
            "\n\tSetParentClassId\t: KV_ENTITY"
            "\n"
            "\n\tAddConstantDescriptor\t: Weight   ---"
            "\n"
            "\n\tAddVariableDescriptor\t: Owner   ---"
            "\n"
            "\n\tAddMethod\t\t: Moo"
            "\n}"
            "\nEntity Cow {"
            "\n\tClassSymbol\t\t: COW"
            "\n\tClassName\t\t: Cow"
            "\n\tSetParentClassId\t: ANIMAL"
            "\n"
            "\n\tAddVariableDescriptor\t: Temperature   ---"
            "\n"
            "\n\tAddMethod\t\t: Calve"
            "\n}");
  EXPECT_EQ(descriptorFile.Bytes(),
            "\nDescriptor InstantAttribute {"
            "\n\tClassSymbol\t\t: INSTANT_ATTRIBUTE"
            "\n\tClassName\t\t: instantAttribute"
            "\n\tSubClass\t: CONSTANT"
            "\n\tType\t: INT"
            "\n}"
            "\nDescriptor CurrentElementIndex {"
            "\n\tClassSymbol\t: CURRENT_ELEMENT_INDEX"
            "\n\tClassName\t: currentElementIndex"
            "\n\tSubClass\t: VARIABLE"
            "\n\tType\t\t: INT"
            "\n}"
            "\nDescriptor Weight {"
            "\n\tClassSymbol\t\t: WEIGHT"
            "\n\tClassName\t\t: weight"
            "\n\tSubClass\t: CONSTANT"
            "\n\tType\t: INT"
            "\n}"
            "\nDescriptor Owner {"
            "\n\tClassSymbol\t: OWNER"
            "\n\tClassName\t: owner"
            "\n\tSubClass\t: VARIABLE"
            "\n\tType\t\t: STRING"
            "\n}"
            "\nDescriptor Temperature {"
            "\n\tClassSymbol\t: @"
            "\n\tClassName\t: temperature"
            "\n\tSubClass\t: VARIABLE"
            "\n\tType\t\t: DOUBLE"
            "\n}");
  EXPECT_EQ(methodFile.Bytes(),
            "\nMethod Moo {"
            "\n\tClassSymbol\t: MOO"
            "\n\tClassName\t: moo"
            "\n\tObjectClass\t: KV_ENTITY"
            "\n\tType\t\t: BOOLEAN"
            "\n\tClassShortComment\t: \"a \"sound\"\""
            "\n}"
            "\nMethod Calve {"
            "\n\tClassSymbol\t: CALVE"
            "\n\tClassName\t: calve"
            "\n\tObjectClass\t: KV_ENTITY"
            "\n\tType\t\t: BOOLEAN"
            "\n\tClassShortComment\t: \"\""
            "\n}");
  EXPECT_EQ(Numbers(*descriptorRows[WEIGHT]), (std::vector<int>{ANIMAL}));
  EXPECT_EQ(Numbers(*methodRows[CALVE]), (std::vector<int>{COW}));
}

TEST_F(ClassExportTest, SiblingsDeclareEachOnItsOwnAndShareTheBlock) {
  ShowToUsers({COW, BULL});
  DeclareThePredefined();
  WithWeight(NewCow());
  WithWeight(NewBull())->AddConstantDescriptor(new IntConstantDescriptor(OWNER, "owner"));
  Export();
  EXPECT_EQ(classFile.Bytes(),
            "\nEntity Cow {\n\tClassSymbol\t\t: COW\n\tClassName\t\t: Cow\n\tSetParentClassId\t: ANIMAL"
            "\n\n\tAddConstantDescriptor\t: Weight   ---\n}"
            "\nEntity Bull {\n\tClassSymbol\t\t: BULL\n\tClassName\t\t: Bull\n\tSetParentClassId\t: ANIMAL"
            "\n\n\tAddConstantDescriptor\t: Weight   ---\n\tAddConstantDescriptor\t: Owner   ---\n}");
  EXPECT_EQ(descriptorFile.Bytes().find("Weight"), descriptorFile.Bytes().rfind("Weight"));
  EXPECT_EQ(Numbers(*descriptorRows[WEIGHT]), (std::vector<int>{COW, BULL}));
}

TEST_F(ClassExportTest, WritesABlockForEachKindOfDescriptorOfOneId) {
  ShowToUsers({COW, BULL});
  WithWeight(NewCow());
  NewBull()->AddVariableDescriptor(new IntVariableDescriptor(WEIGHT, "weight"));
  Export();
  EXPECT_NE(descriptorFile.Bytes().find("CONSTANT"), std::string::npos);
  EXPECT_NE(descriptorFile.Bytes().find("VARIABLE"), std::string::npos);
}

TEST_F(ClassExportTest, AChildOfALowerSymbolThanItsParentDeclaresToo) {
  CreateMetaClass(9, "calf")->SetParentClassId(COW);
  SetHierarchy();
  ClassIdToCharTab[9] = "CALF";
  ShowToUsers({COW});
  WithWeight(NewCow());
  WithWeight(new Thing{ANIMAL, COW, 9});
  Export();
  EXPECT_EQ(Numbers(*descriptorRows[WEIGHT]), (std::vector<int>{9, COW}));
}

TEST_F(ClassExportTest, LeavesOutPrivateDescriptorsAndWhatTheCallersRowsHoldForAnAncestor) {
  ShowToUsers({COW});
  Thing* const cow = WithMethod(WithOwner(WithWeight(NewCow())), MOO, "moo");
  cow->GetDescriptor(WEIGHT)->SetIsPrivate(1);
  DeclareThePredefined();
  push_back_in_row<int>(descriptorRows, OWNER, ANIMAL);
  push_back_in_row<int>(methodRows, MOO, BULL);
  Export();
  EXPECT_EQ(classFile.Bytes(),
            "\nEntity Cow {\n\tClassSymbol\t\t: COW\n\tClassName\t\t: Cow\n\tSetParentClassId\t: ANIMAL"
            "\n\n\tAddMethod\t\t: Moo\n}");
  EXPECT_EQ(descriptorFile.Bytes(), "");
  EXPECT_EQ(Numbers(*methodRows[MOO]), (std::vector<int>{BULL, COW}));
}

TEST_F(ClassExportTest, NamesEveryClassOnStandardOutput) {
  for (int id : {ANIMAL, COW, BULL, FARM, UDDER}) DeleteEntityClasses(id);
  EXPECT_EQ(OutputOf([&] {
              Export();
              if (!classFile.Bytes().empty()) std::printf("not empty");
            }),
            Text("\nMC : %x ('basicEntity') instantiable = 0\nMC : %x ('descriptedEntity') instantiable = 0"
                 "\nMC : %x ('entity') instantiable = 0\nMC : %x ('Herd') instantiable = 0",
                 Address32(GetMetaClass(0)), Address32(GetMetaClass(1)), Address32(GetMetaClass(2)),
                 Address32(GetMetaClass(HERD))));
}

TEST_F(ClassExportTest, ReadsAnInstanceByTheLayerThatItBelongsTo) {
  CreateMetaClass(9, "stone")->SetParentClassId(KV_BASIC_ENTITY);
  ClassIdToCharTab[9] = "STONE";
  auto* const stone = new BasicEntity;
  stone->SetMetaClass(9);
  stone->AddInstanceToClass();
  Export();
  EXPECT_EQ(classFile.Bytes(),
            "\nEntity Stone {\n\tClassSymbol\t\t: STONE\n\tClassName\t\t: stone"
            "\n\tSetParentClassId\t: KV_BASIC_ENTITY\n}");
}

TEST_F(ClassExportTest, FailsWithoutAnInstanceOrAName) {
  ShowToUsers({COW});
  EXPECT_NE(FailureOf([&] { Export(); }).find("EmptyInstanceListForMetaClass"), std::string::npos);
  WithMethod(NewCow(), MOO + 1, "bite");
  const std::string output = RunInChild([&] { Export(); }).output;
  EXPECT_NE(output.find("'MethodIdToString' : indice 63"), std::string::npos) << output;
}

TEST_F(ClassExportTest, InstantiatesTheThreeLayers) {
  const int before = BasicEntity::mInstanceNumber;
  const int entities = GetEntityCreations(KV_ENTITY);
  K_InstantiateClassesForCls();
  EXPECT_EQ(BasicEntity::mInstanceNumber, before + 3);
  EXPECT_EQ(GetEntityCreations(KV_ENTITY), entities + 1);
}

}  // namespace
