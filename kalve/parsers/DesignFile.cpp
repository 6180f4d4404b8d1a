#include "kalve/parsers/DesignFile.h"

#include <cstring>

#include "kalve/designs/DesignOfExperiment.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"

namespace {

const char* TypeWord(ValueTypeId type) {
  if (type == INT) return "un entier";
  if (type == DOUBLE) return "un réel";
  return "un texte entre guillemets";
}

/// The value as the factor holds it; null when it is not of the type. An integer may stand for a real.
std::unique_ptr<UnifiedValue> ValueOf(ValueTypeId type, const GivenModalityValue& given) {
  UnifiedValue value{};
  const int* const number = std::get_if<int>(&given.value);
  if (type == INT && number != nullptr)
    value.intValue = *number;
  else if (type == DOUBLE && number != nullptr)
    value.doubleValue = *number;
  else if (const auto* real = std::get_if<double>(&given.value); type == DOUBLE && real != nullptr)
    value.doubleValue = *real;
  else if (const auto* text = std::get_if<std::string>(&given.value); type == STRING && text != nullptr)
    value.stringValue = strdup(text->c_str());
  else
    return nullptr;
  return std::make_unique<UnifiedValue>(value);
}

}  // namespace

DesignFile::DesignFile(LexicalInputFile* file)
    : ParseState(file, {&g_KV_TraceParsingE, NLe, TLe}),
      mDesign(std::make_unique<FactorialDesignOfExperiment>()) {}

DesignFile::~DesignFile() = default;

void DesignFile::SetReplications(const Position& where, int number) {
  if (number < 1) FaultInFile(where, Text("%d répétitions : 1 au moins est attendue", number));
  mDesign->SetNbReplications(number);
}

void DesignFile::BeginFactor(const std::string& name, const std::vector<FactorVariable>& variables) {
  mFactor = new SerialDesignOfExperiment;
  mFactor->SetName(name.c_str());
  mFactor->SetNbVariables(static_cast<int>(variables.size()));
  for (const FactorVariable& variable : variables) {
    mFactor->GetParamIds1()->push_back(strdup(variable.className.c_str()));
    mFactor->GetParamIds2()->push_back(strdup(variable.name.c_str()));
    mFactor->GetParamTypes()->push_back(variable.type);
    mFactor->AddRow();
  }
  mVariables = variables;
  mNbModalities = 0;
}

void DesignFile::AddModality(const Position& where, const std::vector<GivenModalityValue>& values) {
  if (values.size() != mVariables.size())
    FaultInFile(where, Text("modalité de %zu valeur(s) dans un facteur de %zu variable(s)", values.size(),
                            mVariables.size()));
  for (std::size_t i = 0; i < values.size(); ++i) {
    const FactorVariable& variable = mVariables[i];
    std::unique_ptr<UnifiedValue> value = ValueOf(variable.type, values[i]);
    if (value == nullptr)
      FaultInFile(values[i].where, Text("la valeur de %s %s n'est pas du type du paramètre ; attendu : %s",
                                        Quoted(variable.className).c_str(), Quoted(variable.name).c_str(),
                                        TypeWord(variable.type)));
    mFactor->AddUnifiedValue(static_cast<int>(i), value.release());
  }
  ++mNbModalities;
}

void DesignFile::EndFactor(const Position& where) {
  if (mNbModalities == 0)
    FaultInFile(where, Text("le facteur %s n'a aucune modalité", Quoted(mFactor->GetName()).c_str()));
  mFactor->SetNbModalities(mNbModalities);
  mDesign->AddElement(mFactor);
  ++mNbFactors;
}

void DesignFile::EndDesign() {
  if (mNbFactors == 0) FaultInFile(GetScanner().Last().where, "le plan d'expériences n'a aucun facteur");
  mDesign->SetNbFactors(mNbFactors);
  mDesign->SetCurrentSerialExpeDesignIndex(mNbFactors - 1);
  g_KV_DOE = mDesign.release();
}
