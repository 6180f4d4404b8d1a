// Services over all instances: copy, delete and teardown, lookups by class and name, selections, reports,
// small text helpers.
//
// A lookup answers null or -9 for what is not there, unless it says that it ends the run.
#pragma once

#include <cstdio>
#include <type_traits>

#include "kalve/foundations/Enumerations.h"
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

// Teardown: Teardown.cpp. Destructors edit the very tables that are emptied, and may bring others down.
/// Deletes the process with its methods, as the class that it is.
void DeleteProcess(Process* process);
/// Of all classes, by rising symbol.
void DeleteEntityInstances();
/// Of the class, and then of its parents. Beyond the registry it reports that and does nothing.
void DeleteEntityInstances(int classId);
/// Empties the registry but not the table of symbols.
void DeleteEntityClasses();
/// Empties one slot of the registry; an unknown symbol is reported.
void DeleteEntityClasses(int classId);
/// All monitors, of structures and then of values.
void DeleteMonitors();
/// The end of an application: specifications and entities, then what watches and feeds them, then the
/// simulation (pCurrentSim becomes null), then the classes.
void DeleteAll();

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

// Methods by name: MethodLookups.cpp
/// Of the event, process or entity of that instance name (UnfoundEntityBasedOnInstanceName, InexistantMethod
/// for entities); null for another kind.
Method* GetNamedMethod(ObjectClassId kind, const char* instance, const char* method);
/// The id of the method of that name in the first instance of the class; -9 without instance or method.
int GetMethodSymbol(int classId, const char* name);

// Selections in a table, of what is alive: EntitySelection.cpp
/// The first entity of the class: exactly, for the scope "itself"; of the class or an ancestor of it, for
/// any other.
BasicEntity* SelectBasicEntity(const Tableau<BasicEntity*>& entities, int classId, const char* scope);
/// A new table of all entities of the class: exactly, for the scope "itself"; of the class or a descendant
/// of it (UnknownEntityClass), for any other. The caller deletes it.
Tableau<BasicEntity*>* SelectBasicEntities(const Tableau<BasicEntity*>& entities, int classId,
                                           const char* scope);
/// An element that stands, at any depth, in one entity of the table and in an earlier one: of the first
/// entity that has any, the last of them. Null for none.
BasicEntity* CommonElementInSeveralEntities(Tableau<BasicEntity*>* entities);
/// A new table of the same entities; BadEntityTypeInOrderToSort when one has no descriptors. The caller
/// deletes it.
Tableau<DescriptedEntity*>* EntityTabToDescriptedEntityTab(Tableau<BasicEntity*> entities);

// Reports: EntityReports.cpp; MemoryReport.cpp
/// Addresses of the instances of a class.
void DisplayEntities(int classId);
/// "(name name )", of at most `limit` entities.
void DisplayEntityNames(const Tableau<BasicEntity*>& entities);
void DisplayEntityNames(const Tableau<DescriptedEntity*>& entities);
void DisplayEntityNames(const Tableau<BasicEntity*>& entities, int limit);
void DisplayEntityNames(const Tableau<DescriptedEntity*>& entities, int limit);
/// The same text into pLogFile; nothing without it.
void LogEntityNames(const Tableau<BasicEntity*>& entities);
extern std::FILE* pLogFile;
/// Opens "K_logFile" in the working directory, to append.
void OpenLogFile();
/// Writes "STDOUT" and gGlobalString, and flushes.
void ForceToStdout();
/// Constructions and destructions of all counted classes.
void MemoryReport();
/// The same when `force` is 1 or the start-up option for it was given.
void MemoryReport(int force);

// Class files: ClassExport.cpp
/// Writes what tools need to know of the classes that users may instantiate: into `classFile` each class with
/// its first parent and what it declares, into the other two each descriptor and method once. The files stay
/// open. A class of an application is read from its first instance (EmptyInstanceListForMetaClass), and all
/// ids need a name in their table.
///
/// A row lists the classes that have declared its id, and grows; what an ancestor has declared is not
/// declared again. Classes are visited by rising symbol: a parent of a higher symbol than its child comes too
/// late. Missing rows are made, and belong to the caller.
void WriteToCls(std::FILE* classFile, std::FILE* descriptorFile, std::FILE* methodFile,
                Tableau<Tableau<int>*>& descriptorRows, Tableau<Tableau<int>*>& methodRows);
/// Makes an entity of each of the three layers, which nobody frees.
void K_InstantiateClassesForCls();

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
