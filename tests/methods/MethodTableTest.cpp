// The owners' pair of tables: ids, names, copies.
#include <gtest/gtest.h>

#include "kalve/methods/Argument.h"
#include "kalve/methods/Method.h"
#include "kalve/methods/MethodTable.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Throws.h"

namespace {

struct Owner {
  MethodTable methods;
  ~Owner() { methods.DestroyMethods(); }
  void AddMethod(Method* method) { methods.Add(method, "Owner::AddMethod"); }
  template <class Result>
  Result Exec(int id) {
    return static_cast<EntityMethod*>(methods[id])->Call<Result>();
  }
};

TEST(MethodTable, FindsTheLaterOfAnIdAndTheFirstOfAName) {
  Owner owner;
  auto* first = new IntEntityMethod(70, "grow");
  auto* second = new IntEntityMethod(70, "graze");
  auto* third = new VoidEntityMethod(72, "grow");
  for (Method* method : {static_cast<Method*>(first), static_cast<Method*>(second),
                         static_cast<Method*>(third), static_cast<Method*>(second)})
    owner.AddMethod(method);
  EXPECT_EQ(owner.methods.Methods().size(), 3);
  EXPECT_EQ(owner.methods.Rank(70), 2);  // a second addition points at the last rank
  EXPECT_EQ(owner.methods[72], third);
  EXPECT_EQ(owner.methods.Named("grow"), first);
  EXPECT_EQ(owner.methods.Named("graze"), second);
  EXPECT_EQ(owner.methods.Named("milk"), nullptr);
}

TEST(MethodTable, HasNothingForIdsWithoutMethod) {
  Owner owner;
  owner.AddMethod(new VoidEntityMethod(72, "grow"));
  EXPECT_TRUE(Throws([&] { owner.methods[71]; }));
  EXPECT_LT(owner.methods.Rank(71), 0);
  EXPECT_TRUE(Throws([&] { owner.methods[73]; }));
  EXPECT_TRUE(Throws([&] { owner.methods.Rank(73); }));
  VoidEntityMethod unset;
  EXPECT_EQ(RunInChild([&] { owner.AddMethod(&unset); }).output,
            "\n!!! Indice hors tableau dans 'Owner::AddMethod' : indice -9, taille du tableau 73.\nERROR \n");
}

TEST(MethodTable, CopiesTheKeptTypesInOrderAndEachMethodDiesOnce) {
  const int born = Method::getNbConst();
  const int dead = Method::getNbDest();
  const int instances = Method::mInstanceNumber;
  {
    Owner source;
    auto* size = new IntEntityMethod(71, "size");
    size->AssignBody([](EntityMethod* m) { return m->GetIntArgValue(61); });
    size->AddArg(new IntArgument(61, "factor"));
    size->SetArgValue(61, 6);
    source.AddMethod(new DoubleTabEntityMethod(70, "weights"));
    source.AddMethod(size);
    source.AddMethod(new VoidEntityMethod(72, "grow"));
    Owner copy;
    MethodTable::CopyMethods(source.methods, {VOID, INT}, copy);
    EXPECT_EQ(copy.methods.Methods().size(), 2);
    EXPECT_LT(copy.methods.Rank(70), 0);
    EXPECT_EQ(copy.methods.Rank(72), 1);
    size->SetArgValue(61, 7);
    EXPECT_EQ(source.Exec<int>(71), 7);
    EXPECT_EQ(copy.Exec<int>(71), 6);
  }
  EXPECT_EQ(Method::getNbConst() - born, 5);
  EXPECT_EQ(Method::getNbDest() - dead, 5);
  EXPECT_EQ(Method::mInstanceNumber - instances, -5);
}

}  // namespace
