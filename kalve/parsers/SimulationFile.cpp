#include "kalve/parsers/SimulationFile.h"

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/ParserFunction.h"

SimulationFile::SimulationFile(LexicalInputFile* file)
    : ParseState(NeedingSimulation(file), {&g_KV_TraceParsingI, NLi, TLi}) {}

void SimulationFile::SetUnit(const Position& where, int quantity, const std::string& unit) {
  if (quantity < 1)
    FaultInFile(where, Text("l'unité d'horloge compte %d : 1 au moins est attendu", quantity));
  mUnit = {quantity, CheckedUnit(where, unit)};
}

void SimulationFile::SetBeginningToday(const TimeOfDay& time) {
  mBeginning = {Moment::Kind::today, 0, Date(0, 0, 0, time.hour, time.minute, time.second)};
}

void SimulationFile::SetEndClock(const Position& where, int clock) {
  if (clock < 0) FaultInFile(where, "la fin est antérieure au début de la simulation");
  mEnd = {Moment::Kind::clock, clock, Date(0, 0, 0, 0, 0, 0), where};
}

void SimulationFile::BeginDataFile(const DataFileDeclaration& declaration) {
  for (const DataFileDeclaration& declared : mDataFiles)
    if (declared.IsOf(declaration))
      FaultInFile(declaration.Where(), Text("le fichier de données %s est déjà déclaré à la ligne %d",
                                            declared.ShownClass().c_str(), declared.Where().line));
  mDataFiles.push_back(declaration);
}

void SimulationFile::Apply() const {
  if (mUnit) {
    pCurrentSim->ClockTimeUnitQuantity(mUnit->quantity);
    pCurrentSim->ClockTimeUnit(mUnit->unit);
  }
  if (mBeginning) ApplyBeginning();
  if (mEnd) ApplyEnd();
  if (mInDir) pCurrentSim->SetInDir(mInDir->c_str());
  if (mOutDir) pCurrentSim->SetOutDir(mOutDir->c_str());
  for (const DataFileDeclaration& dataFile : mDataFiles) dataFile.Apply();
}

void SimulationFile::ApplyBeginning() const {
  const Date& date = mBeginning->date;
  if (mBeginning->kind == Moment::Kind::today)
    pCurrentSim->SetThisDayBeginningDate(date.hour, date.minute, date.second);
  else
    pCurrentSim->SetBeginningDate(date.day, date.month, date.year, date.hour, date.minute, date.second);
}

void SimulationFile::ApplyEnd() const {
  if (mEnd->kind == Moment::Kind::clock) return pCurrentSim->SetEndClock(mEnd->clock);
  const Date& date = mEnd->date;
  ClockOfDate(mEnd->where, date);  // refuses a date that has no clock
  pCurrentSim->SetEndDate(date.day, date.month, date.year, date.hour, date.minute, date.second);
}
