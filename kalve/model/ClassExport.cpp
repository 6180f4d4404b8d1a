// Class files, for tools that work from the classes of a model: one of classes, one of descriptors, one of
// methods. The registry knows names and kinship; what a class has beyond them is read from an instance.
#include <cstdio>
#include <string>

#include "kalve/descriptors/Descriptor.h"
#include "kalve/descriptors/PredefinedAttributes.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Records.h"
#include "kalve/methods/CoreMethod.h"
#include "kalve/methods/Method.h"
#include "kalve/model/CoreFunction.h"
#include "kalve/model/Entity.h"
#include "kalve/model/MetaClass.h"

void K_InstantiateClassesForCls() {
  new BasicEntity;
  new DescriptedEntity;
  new Entity;
}

namespace {

using ClassRows = Tableau<Tableau<int>*>;

std::string Headed(const char* name) {
  const std::string text = OrEmpty(name);
  std::string headed = text;
  FirstToUpper(text.c_str(), headed.data());
  return headed;
}

// How each kind of member stands in the class file, and in the file of its kind. The tabs differ, and tools
// read them so.

const char* NameOf(const Descriptor& descriptor) { return descriptor.ClassName(); }
const char* NameOf(const Method& method) { return method.StoredClassName(); }

bool IsExported(const Descriptor& descriptor) { return descriptor.IsPrivate() == 0; }
bool IsExported(const Method& /*method*/) { return true; }

void WriteDeclaration(FILE* file, const ConstantDescriptor& /*descriptor*/, const char* headedName) {
  std::fprintf(file, "\n\tAddConstantDescriptor\t: %s   ---", headedName);
}
void WriteDeclaration(FILE* file, const VariableDescriptor& /*descriptor*/, const char* headedName) {
  std::fprintf(file, "\n\tAddVariableDescriptor\t: %s   ---", headedName);
}
void WriteDeclaration(FILE* file, const Method& /*method*/, const char* headedName) {
  std::fprintf(file, "\n\tAddMethod\t\t: %s", headedName);
}

void WriteBlock(FILE* file, const ConstantDescriptor& descriptor, const char* headedName) {
  std::fprintf(file, "\nDescriptor %s {", headedName);
  std::fprintf(file, "\n\tClassSymbol\t\t: %s", DescIdToString(descriptor.ClassSymbol()));
  std::fprintf(file, "\n\tClassName\t\t: %s", OrEmpty(descriptor.ClassName()));
  std::fprintf(file, "\n\tSubClass\t: %s", DescriptorSubclassToChar(descriptor.Subclass()));
  std::fprintf(file, "\n\tType\t: %s", ValueTypeToChar(descriptor.ClassType()));
  std::fprintf(file, "\n}");
}

void WriteBlock(FILE* file, const VariableDescriptor& descriptor, const char* headedName) {
  std::fprintf(file, "\nDescriptor %s {", headedName);
  std::fprintf(file, "\n\tClassSymbol\t: %s", DescIdToString(descriptor.ClassSymbol()));
  std::fprintf(file, "\n\tClassName\t: %s", OrEmpty(descriptor.ClassName()));
  std::fprintf(file, "\n\tSubClass\t: %s", DescriptorSubclassToChar(descriptor.Subclass()));
  std::fprintf(file, "\n\tType\t\t: %s", ValueTypeToChar(descriptor.ClassType()));
  std::fprintf(file, "\n}");
}

void WriteBlock(FILE* file, const Method& method, const char* headedName) {
  const auto owner = static_cast<ObjectClassId>(method.ObjectClass());
  std::fprintf(file, "\nMethod %s {", headedName);
  std::fprintf(file, "\n\tClassSymbol\t: %s", MethodIdToString(method.ClassSymbol()));
  std::fprintf(file, "\n\tClassName\t: %s", OrEmpty(method.StoredClassName()));
  std::fprintf(file, "\n\tObjectClass\t: %s", OrEmpty(ObjectClassToChar(owner)));
  std::fprintf(file, "\n\tType\t\t: %s", ValueTypeToChar(method.ClassType()));
  std::fprintf(file, "\n\tClassShortComment\t: \"%s\"", method.ClassShortComment());
  std::fprintf(file, "\n}");
}

/// The row of an id, made when the caller has left it out.
Tableau<int>& RowOf(ClassRows& rows, int id) {
  if (id < 0) FailOnIndex("WriteToCls", rows.size(), id);
  while (rows.size() <= id) rows.push_back(new Tableau<int>());
  if (rows[id] == nullptr) rows[id] = new Tableau<int>();
  return *rows[id];
}

bool IsInherited(const Tableau<int>& declaringClasses, int classId) {
  for (const int declaring : declaringClasses)
    if (IsAncestorOf(declaring, classId)) return true;
  return false;
}

/// The members of one kind: their declarations, and the blocks of those that no class has declared before.
struct MemberExport {
  FILE* classFile;
  FILE* memberFile;
  ClassRows& rows;
  Tableau<int> describedIds = {};

  template <class Member>
  void Write(int classId, const Tableau<Member*>& members) {
    bool isFirst = true;
    for (const Member* member : members) {
      if (!IsExported(*member)) continue;
      const int id = member->ClassSymbol();
      if (IsInherited(RowOf(rows, id), classId)) continue;
      if (isFirst) std::fputs("\n", classFile);
      isFirst = false;
      const std::string headedName = Headed(NameOf(*member));
      WriteDeclaration(classFile, *member, headedName.c_str());
      push_back_in_row(rows, id, classId);
      if (describedIds.position(id) >= 0) continue;
      WriteBlock(memberFile, *member, headedName.c_str());
      describedIds.push_back(id);
    }
  }
};

/// An instance that shows what the class has. One of the three layers is made for it, and stays.
BasicEntity* SampleOf(int classId) {
  switch (classId) {
    case KV_BASIC_ENTITY:
      return new BasicEntity;
    case KV_DESCRIPTED_ENTITY:
      return new DescriptedEntity;
    case KV_ENTITY:
      return new Entity;
    default:
      return GetMetaClass(classId)->GetInstance(0);
  }
}

void WriteClassHeader(FILE* file, int classId, const MetaClass& metaClass) {
  std::fprintf(file, "\nEntity %s {", Headed(metaClass.ClassName()).c_str());
  std::fprintf(file, "\n\tClassSymbol\t\t: %s", ClassIdToString(classId));
  std::fprintf(file, "\n\tClassName\t\t: %s", metaClass.ClassName());
  const Tableau<int> parents = metaClass.ParentIds();
  if (parents.empty() == 0) std::fprintf(file, "\n\tSetParentClassId\t: %s", ClassIdToString(parents[0]));
}

}  // namespace

void WriteToCls(FILE* classFile, FILE* descriptorFile, FILE* methodFile, ClassRows& descriptorRows,
                ClassRows& methodRows) {
  MemberExport constants{classFile, descriptorFile, descriptorRows};
  MemberExport variables{classFile, descriptorFile, descriptorRows};
  MemberExport methods{classFile, methodFile, methodRows};
  for (int id = 0; id < gMetaClassTab.size(); ++id) {
    const MetaClass* const metaClass = GetMetaClass(id);
    if (metaClass == nullptr) continue;
    std::printf("\nMC : %x ('%s') instantiable = %d", Address32(metaClass), metaClass->ClassName(),
                metaClass->IsUserInstantiable());
    if (metaClass->IsUserInstantiable() == 0) continue;
    const BasicEntity* const sample = SampleOf(id);
    WriteClassHeader(classFile, id, *metaClass);
    // An instance has what its own layer has.
    if (sample->EntityType() >= KV_DESCRIPTED_ENTITY) {
      const auto* const described = static_cast<const DescriptedEntity*>(sample);
      constants.Write(id, described->ConstantDescriptorTab());
      variables.Write(id, described->VariableDescriptorTab());
    }
    if (sample->EntityType() >= KV_ENTITY) methods.Write(id, static_cast<const Entity*>(sample)->MethodTab());
    std::fputs("\n}", classFile);
  }
}
