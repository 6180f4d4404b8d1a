// Services over all instances: copy and delete by layer, lookups by class and name, small text helpers.
//
// A lookup answers null or -9 for what is not there, unless it says that it ends the run.
#pragma once

#include <type_traits>

#include "kalve/foundations/Forward.h"
#include "kalve/foundations/Tableau.h"

// Copy and delete: EntityDispatch.cpp
/// A deep copy by the layer that the entity's class descends from: a copy of an application class is a plain
/// Entity of that class. StrangeEntity for an entity of no layer.
BasicEntity* CopyEntity(BasicEntity* entity);
/// `withMonitors` false takes the copied elements in past the monitors.
BasicEntity* CopyEntity(BasicEntity* entity, bool withMonitors);
/// Destroys the entity as what its type says, and frees it; StrangeEntity for an unknown type. An
/// application class's own destructor does not run.
void DeleteEntity(BasicEntity* entity);

// Counts and lists by class symbol: EntityLookups.cpp
/// -9 for an empty slot of the registry, an index failure beyond it.
int GetEntityCreations(int classId);
int GetEntityDeletions(int classId);
/// Instances in the class's table.
int GetNumberOfEntities(int classId);
/// The class's own table; BadEntityClassSpecification for a negative symbol.
Tableau<BasicEntity*>* GetEntityList(int classId);
/// A new table of the instances without super-entity and super-set; the caller deletes it.
/// BadEntityClassSpecification for a negative symbol, UnknownEntityClass for an empty slot.
Tableau<BasicEntity*>* GetFreeEntityList(int classId);
/// The same over all classes, each entity once.
Tableau<BasicEntity*>* GetFreeEntityList();
/// -9 beyond the registry.
int GetNumberOfFreeEntities(int classId);

// Lookups: EntityLookups.cpp
/// The first instance of a class; null with a report for a class without any; UnknownEntityClass.
BasicEntity* GetFirstBasicEntity(int classId);
DescriptedEntity* GetFirstDescriptedEntity(int classId);
Entity* GetFirstEntity(int classId);
/// The first of that name in the highest class that has one.
Entity* GetNamedEntity(const char* name);
/// In one class, in all for an empty class name. BadEntityClassSpecification for an unknown name or a
/// negative symbol, UnknownEntityClass for a symbol without a class.
Entity* GetNamedEntity(const char* className, const char* name);
Entity* GetNamedEntity(int classId, const char* name);

// Entity specifications: specs/EntitySpecLookups.cpp
/// The first of that name.
EntitySpec* GetNamedEntitySpec(const char* name);
/// The first of that reference class; NoInformationForReferenceClass for one before it without a class.
EntitySpec* GetFirstEntitySpec(int classId);
/// Deletes all that live, with their conditions.
void DeleteEntitySpecs();
// Values of described entities: DescribedLookups.cpp
/// The first instance of a class whose int descriptor has the value. The first form goes to the constants,
/// the second to the variables, the third to whichever the class's first instance has, constants before
/// variables; InexistantDescriptor when it has neither.
Entity* GetFirstEntityOnDescIntConstValue(int classId, int descId, int value);
Entity* GetFirstEntityOnDescIntVarValue(int classId, int descId, int value);
Entity* GetFirstEntityOnDescIntValue(int classId, int descId, int value);
/// Class symbol, and type, of the descriptor of that name, as the first instance of the class has it.
int GetDescriptorSymbol(int classId, const char* name);
int GetDescriptorType(int classId, const char* name);
/// By a numeric descriptor, rising (equal ones keep their order) and falling (equal ones swap it).
void SortUp(Tableau<DescriptedEntity*>* entities, int descId);
void SortDown(Tableau<DescriptedEntity*>* entities, int descId);
/// The first entity of the highest (lowest) value of a numeric descriptor; null when all values are the
/// lowest (highest) of the type, or for another type. An index failure for an empty table.
DescriptedEntity* MaxValued(Tableau<DescriptedEntity*>* entities, int descId);
DescriptedEntity* MinValued(Tableau<DescriptedEntity*>* entities, int descId);

// Positions: the first index of a match, -9 for none.
template <class T>
int GetPosition(const Tableau<T*>& items, const std::type_identity_t<T>* item) {
  return items.position(const_cast<T*>(item));
}
/// By text.
int GetPosition(const Tableau<const char*>& texts, const char* text);
int GetPosition(const Tableau<char*>& texts, const char* text);
/// By exact class.
int GetPosition(const Tableau<BasicEntity*>& entities, int classId);
/// By instance name.
int GetPosition(const Tableau<BasicEntity*>& entities, const char* name);
/// By class symbol: DescribedLookups.cpp
int GetPosition(const Tableau<ConstantDescriptor*>& descriptors, int classSymbol);
int GetPosition(const Tableau<VariableDescriptor*>& descriptors, int classSymbol);

// Texts
/// Writes n in decimal and answers the buffer, of at least 12 bytes.
char* itoc(int n, char* buffer);
/// The same, right-aligned in `width` columns.
char* fillLeft(int width, int n, char* buffer);
/// Copies `in` to `out`, of at least its length, with the first letter in upper case.
void FirstToUpper(const char* in, char* out);
/// A duplicate that the caller frees; null for null.
char* my_strdup(const char* text);
char* my_strdup1(const char* text);
char* my_strdup2(const char* text);
