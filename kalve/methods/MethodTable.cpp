#include "kalve/methods/MethodTable.h"

#include <cstring>
#include <new>

#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Method.h"

Method* NewMethodCopy(const Method& source, ValueTypeSet kept) {
  Method* copy = nullptr;
  if (kept.Has(source.ClassType()))
    MethodLeaves::VisitLeaf(source, [&copy]<class Leaf>(const Leaf& leaf) { copy = new Leaf(leaf); });
  return copy;
}

void DestroyMethod(Method* method) {
  method->~Method();  // branches and leaves have nothing of their own to destroy
  Method::operator delete(method);
}

void MethodTable::Add(Method* method, const char* where) {
  const int id = method->ClassSymbol();
  if (id < 0) FailOnIndex(where, mDualMethodTab.size(), id);
  mMethodTab.push_back_ifnew(method);
  set_nth_num(mDualMethodTab, id, mMethodTab.size() - 1);
}

Method* MethodTable::Named(const char* name) const {
  for (Method* method : mMethodTab)
    if (std::strcmp(OrEmpty(method->StoredClassName()), OrEmpty(name)) == 0) return method;
  return nullptr;
}

void MethodTable::Forget() {
  mMethodTab.erase();
  mDualMethodTab.erase();
}

void MethodTable::DestroyMethods() {
  for (Method* method : mMethodTab) DestroyMethod(method);
  Forget();
}
