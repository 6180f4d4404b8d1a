// Entity: the third layer of entities, which has methods; the usual base of an application's classes.
//
// An application class overrides nothing: its constructor fills the table of methods, and the application
// assigns a plain function to a method as its body, instance by instance, whenever it wants. Entities own
// their methods. A copy has copies of them, with bodies and arguments, except of those that answer tables of
// numbers.
//
// A method is found by its id. An id beyond the table is an index failure everywhere; one within it that
// this entity has no method for is InexistantMethod, and for HasBody and GetMethodWithBody no fault.
#pragma once

#include "kalve/methods/MethodTable.h"
#include "kalve/model/DescriptedEntity.h"

class Entity : public DescriptedEntity {
 public:
  Entity();
  /// The four forms of BasicEntity.
  Entity(const Entity& source);
  Entity(const Entity& source, int depth);
  Entity(const Entity& source, bool withMonitors);
  Entity(const Entity& source, bool withMonitors, int depth);
  Entity& operator=(const Entity&) = delete;
  /// Destroys the methods.
  ~Entity();

  // Methods
  /// Takes ownership of an entity method (BadMethodTypeWhenAdd for any other). A second method of an id hides
  /// the first from the id.
  void AddMethod(Method* method);
  Method* GetMethod(int id) const;
  /// The first method of that name; InexistantMethod without any.
  Method* GetMethod(const char* name) const;
  bool HasBody(int id) const;
  /// Null for a method without body, as for none.
  Method* GetMethodWithBody(int id) const;
  /// In order of addition.
  Tableau<Method*> MethodTab() const { return mMethods.Methods(); }
  /// Rank by id, negative for an id without method.
  Tableau<int> DualMethodTab() const { return mMethods.Ranks(); }

  /// Gives a method its body, or takes it away with null; BadMethodValueType when the method answers another
  /// type.
  void AssignBody(int id, void (*body)(EntityMethod*));
  void AssignBody(int id, bool (*body)(EntityMethod*));
  void AssignBody(int id, int (*body)(EntityMethod*));
  void AssignBody(int id, float (*body)(EntityMethod*));
  void AssignBody(int id, double (*body)(EntityMethod*));
  void AssignBody(int id, const char* (*body)(EntityMethod*));
  void AssignBody(int id, BasicEntity* (*body)(EntityMethod*));
  void AssignBody(int id, Tableau<BasicEntity*>* (*body)(EntityMethod*));

  /// Write an argument of a method, as Method::SetArgValue does.
  void SetIntArgValue(int methodId, int argumentId, int value);
  void SetFloatArgValue(int methodId, int argumentId, float value);
  void SetDoubleArgValue(int methodId, int argumentId, double value);
  void SetEntityArgValue(int methodId, int argumentId, BasicEntity* value);
  void SetEntityTabArgValue(int methodId, int argumentId, Tableau<BasicEntity*>* value);
  void SetStringArgValue(int methodId, int argumentId, const char* value);
  void SetIntTabArgValue(int methodId, int argumentId, Tableau<int>* value);
  void SetFloatTabArgValue(int methodId, int argumentId, Tableau<float>* value);
  void SetDoubleTabArgValue(int methodId, int argumentId, Tableau<double>* value);

  /// Run the body and answer what it answers; without a body 0, false or null. BadMethodValueType when the
  /// method answers another type.
  void ExecVoidMethod(int id);
  bool ExecPredicate(int id);
  int ExecIntMethod(int id);
  float ExecFloatMethod(int id);
  double ExecDoubleMethod(int id);
  const char* ExecStringMethod(int id);
  BasicEntity* ExecEntityMethod(int id);
  Tableau<BasicEntity*>* ExecEntityTabMethod(int id);
  Tableau<int>* ExecIntTabMethod(int id);
  Tableau<float>* ExecFloatTabMethod(int id);

 private:
  void BecomeCopyOf(const Entity& source);
  int RankOf(int id, const char* caller) const;
  EntityMethod& TypedMethod(int id, ValueTypeId type, const char* operation);

  MethodTable mMethods;
};
