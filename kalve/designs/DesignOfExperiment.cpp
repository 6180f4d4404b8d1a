#include "kalve/designs/DesignOfExperiment.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Registry.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/inputs/ParserFunction.h"

// User interfaces read the traces of a design; those with accents are in UTF-8, byte by byte, unlike all
// other texts of the kernel.

namespace {

/// Runs `body`, in which an index out of range is the failure of `where`.
template <class T, class Body>
void WithIndexes(const char* where, const Tableau<T>& table, Body body) {
  try {
    body();
  } catch (int index) {
    FailOnIndex(where, table.size(), index);
  }
}

template <class Item>
void PrintJoined(int count, const char* joiner, Item printItem) {
  for (int i = 0; i < count; ++i) {
    if (i > 0) std::printf("%s", joiner);
    printItem(i);
  }
}

}  // namespace

// Factors ---------------------------------------------------------------------------------------------

int SerialDesignOfExperiment::mInstanceNumber = 0;
Tableau<SerialDesignOfExperiment*> SerialDesignOfExperiment::mpInstanceTab;

SerialDesignOfExperiment::SerialDesignOfExperiment() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Construction du SED " << this;
  AddInstance(this);
}

SerialDesignOfExperiment::~SerialDesignOfExperiment() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "-Destruction du SED " << this;
  if (mpInstanceTab.position(this) >= 0) RemoveInstance(this);
  for (char* name : mParamIds1) std::free(name);
  for (char* name : mParamIds2) std::free(name);
  depth_delete(mValues, &mParamTypes);
}

void SerialDesignOfExperiment::AddUnifiedValue(int row, UnifiedValue* value) {
  if (row < 0 || row >= mValues.size())
    FailOnIndex("SerialDesignOfExperiment::AddUnifiedValue", mValues.size(), row);
  mValues[row]->push_back(value);
}

int SerialDesignOfExperiment::NextSimulationSettings() {
  std::printf("\n\tDEBUT SED '%s'::NSS mCurrentModalityIndex = %d", GetName(), mCurrentModalityIndex);
  const bool endReached = mCurrentModalityIndex >= mNbModalities;
  if (endReached) {
    mCurrentModalityIndex = 0;
    std::printf("\tretour \xc3\xa0 mCurrentModalityIndex = 0 pour '%s'", GetName());
  }
  WithIndexes("SerialDesignOfExperiment::NextSimulationSettings", mValues, [this] {
    for (int variable = 0; variable < mNbVariables; ++variable) ApplyVariable(variable);
  });
  std::printf("\n\tFIN SED '%s'::NSS returns endReached = %d\n", GetName(), endReached ? 1 : 0);
  return endReached ? 1 : 0;
}

namespace {

/// The parameter as one of the class; its type was written down before the parameters were read.
template <class Kind>
Kind* Checked(Parameter* parameter, const char* type) {
  if (parameter->ValueType() != Kind::type)
    InexistantTypedParameter(parameter->EntityClassName(), parameter->DescriptorName(), type, "set value");
  return static_cast<Kind*>(parameter);
}

}  // namespace

void SerialDesignOfExperiment::ApplyVariable(int variable) const {
  const char* id1 = mParamIds1[variable];
  const char* id2 = mParamIds2[variable];
  std::printf("\n\tindexVar = %d id1 = '%s'\tid2 = '%s'", variable, id1, id2);
  Parameter* parameter = GetParameter(id1, id2);
  const UnifiedValue& value = ValueAt(variable, mCurrentModalityIndex);
  switch (mParamTypes[variable]) {
    case DOUBLE:
      Checked<RealParameter>(parameter, "réel")->SetValue(value.doubleValue);
      std::printf("\tval = %f\n", value.doubleValue);
      break;
    case STRING:
      Checked<StringParameter>(parameter, "chaîne de caractères")->SetValue(value.stringValue);
      std::printf("\tval = '%s'\n", value.stringValue);
      break;
    case INT:
      Checked<IntParameter>(parameter, "entier")->SetValue(value.intValue);
      std::printf("\tval = %d\n", value.intValue);
      break;
    default:
      return;
  }
  pInitParameterGlobalVariables();
}

void SerialDesignOfExperiment::DisplayValue(int variable, int modality) const {
  const UnifiedValue& value = ValueAt(variable, modality);
  if (mParamTypes[variable] == INT) std::printf("%d", value.intValue);
  if (mParamTypes[variable] == DOUBLE) std::printf("%f", value.doubleValue);
  if (mParamTypes[variable] == STRING) std::printf("'%s'", value.stringValue);
}

void SerialDesignOfExperiment::Display() const {
  WithIndexes("SerialDesignOfExperiment::Display", mValues, [this] {
    PrintJoined(mNbModalities, " -> ", [this](int modality) {
      std::printf("[");
      PrintJoined(mNbVariables, " + ", [this, modality](int variable) { DisplayValue(variable, modality); });
      std::printf("]");
    });
  });
}

void SerialDesignOfExperiment::DisplayIds() const {
  std::printf("[");
  WithIndexes("SerialDesignOfExperiment::DisplayIds", mParamIds1, [this] {
    PrintJoined(mNbVariables, " + ", [this](int variable) {
      std::printf("'%s' '%s'", mParamIds1[variable], mParamIds2[variable]);
    });
  });
  std::printf("]");
}

void SerialDesignOfExperiment::AddInstance(SerialDesignOfExperiment* design) {
  if (mpInstanceTab.position(design) >= 0) return;
  mpInstanceTab.push_back(design);
  ++mInstanceNumber;
}

void SerialDesignOfExperiment::RemoveInstance(SerialDesignOfExperiment* design) {
  TakeOut(mpInstanceTab, design, "SerialDesignOfExperiment::RemoveInstance");
  --mInstanceNumber;
}

SerialDesignOfExperiment* SerialDesignOfExperiment::GetInstance(int rank) {
  return InstanceAt(mpInstanceTab, rank, "SerialDesignOfExperiment::GetInstance");
}

// The crossing ----------------------------------------------------------------------------------------

FactorialDesignOfExperiment::FactorialDesignOfExperiment() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "\n-Construction du FED " << this;
}

FactorialDesignOfExperiment::~FactorialDesignOfExperiment() {
  if (g_KV_TraceNewDelMode != 0) std::cout << "-Destruction du FED " << this;
  DeleteSerialExpeSpecifications();
}

int FactorialDesignOfExperiment::NextSimulationSettings() {
  std::printf("\nDEBUT FED::NSS index du SEDS courant = %d\n", mCurrentSerialExpeDesignIndex);
  bool goneAllOver = true;
  WithIndexes("FactorialDesignOfExperiment::NextSimulationSettings", mSerialDesigns, [&] {
    if (!mSerialDesigns.empty()) goneAllOver = Advance();
  });
  std::printf("\nFIN FED::NSS goneAllOver = %d - la var qui vient de changer est d'index %d\n",
              goneAllOver ? 1 : 0, mCurrentSerialExpeDesignIndex);
  return goneAllOver ? K_INT_UNSIGNIFICANT : mNbReplications;
}

/// Moves the current factor and, as long as factors wrap, those before it; true when all have. The current
/// factor's index points to the modality to apply next, that of the others to the one in place.
bool FactorialDesignOfExperiment::Advance() {
  SerialDesignOfExperiment* current = mSerialDesigns[mCurrentSerialExpeDesignIndex];
  bool carry = current->NextSimulationSettings() != 0;
  current->IncrCurrentModalityIndex();
  while (carry) {
    if (mCurrentSerialExpeDesignIndex == 0) return true;
    carry = CarryOver();
  }
  return false;
}

/// Moves the factor before the current one; the last factor, which has its modality 0 in place, then goes on
/// with 1. True when that factor wraps in its turn.
bool FactorialDesignOfExperiment::CarryOver() {
  SerialDesignOfExperiment* slower = mSerialDesigns[--mCurrentSerialExpeDesignIndex];
  slower->IncrCurrentModalityIndex();
  std::printf(
      "\n\tremont\xc3\xa9"
      "e sur '%s' avec modalit\xc3\xa9 d'index %d",
      slower->GetName(), slower->GetCurrentModalityIndex());
  if (slower->NextSimulationSettings() != 0) return true;
  mCurrentSerialExpeDesignIndex = mNbFactors - 1;
  SerialDesignOfExperiment* last = mSerialDesigns[mCurrentSerialExpeDesignIndex];
  last->SetCurrentModalityIndex(1);
  std::printf("\n\ton continuera sur '%s' avec modalit\xc3\xa9 d'index 1", last->GetName());
  return false;
}

void FactorialDesignOfExperiment::Display() const {
  constexpr const char* joiner = "\n X\n ";
  constexpr const char* line = "--------------------------------";
  std::printf("%s\n(", line);
  PrintJoined(mSerialDesigns.size(), joiner, [this](int i) { mSerialDesigns[i]->DisplayIds(); });
  std::printf(")\n%s\n(", line);
  PrintJoined(mSerialDesigns.size(), joiner, [this](int i) { mSerialDesigns[i]->Display(); });
  std::printf(")\n%s", line);
}

// Teardown --------------------------------------------------------------------------------------------

void DeleteSerialExpeSpecifications() {
  const Tableau<SerialDesignOfExperiment*> designs(SerialDesignOfExperiment::mpInstanceTab);
  for (SerialDesignOfExperiment* design : designs) delete design;
  SerialDesignOfExperiment::mpInstanceTab.erase();
}

void DeleteExpeSpecifications() { delete g_KV_DOE; }
