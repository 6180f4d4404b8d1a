#include "examples/herd/HerdLife.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>

#include "examples/herd/HerdClasses.h"
#include "examples/herd/HerdData.h"

HerdParameters herdParameters;

void RefreshHerdParameters() {
  herdParameters = {
      .intake = GetRealParameterValue("Cow", "intake"),
      .residue = GetRealParameterValue("Paddock", "residue"),
      .growthRate = GetRealParameterValue("Paddock", "growthRate"),
      .ceiling = GetRealParameterValue("Paddock", "ceiling"),
      .woodA = GetRealParameterValue("Cow", "woodA"),
      .woodB = GetRealParameterValue("Cow", "woodB"),
      .woodC = GetRealParameterValue("Cow", "woodC"),
      .heatLoss = GetRealParameterValue("Cow", "heatLoss"),
  };
}

namespace {

Entity& TheFarm() { return *pCurrentSim->SimulatedEntity(); }
Entity& TheHerd() { return *GetFirstEntity(HERD); }
Entity* ProcessedBy(ProcessMethod* method) { return method->DescribedProcess()->ProcessedEntity(); }

int DayOfYear() {
  const std::unique_ptr<std::tm> now(pCurrentSim->CurrentTmDate());
  return now->tm_yday + 1;
}
int HourOfDay() {
  const std::unique_ptr<std::tm> now(pCurrentSim->CurrentTmDate());
  return now->tm_hour;
}

double Temperature() {
  const Entity& farm = TheFarm();
  return farm.GetDoubleValue(TEMPERATURE) + farm.GetDoubleValue(HEAT);
}

/// The living entities that a selection of the files finds now.
const Tableau<BasicEntity*>& Selected(const char* specName) {
  EntitySpec* spec = GetNamedEntitySpec(specName);
  spec->Expand();
  return *spec->GetExpansion();
}

template <class Body>
void ForEachCow(Body body) {
  for (BasicEntity* cow : TheHerd().GetElementTab()) body(static_cast<Entity&>(*cow));
}

// Grass ------------------------------------------------------------------------------------------------

/// From 0 to 1: none below 4 degrees, all from 13 to 20, little in the heat.
double TemperatureFactor(double temperature) {
  if (temperature < 4.0) return 0.0;
  if (temperature < 13.0) return (temperature - 4.0) / 9.0;
  return std::clamp(1.0 - (temperature - 20.0) / 15.0, 0.1, 1.0);
}

/// One day of growth.
void Grow(ProcessMethod* method) {
  Entity& paddock = *ProcessedBy(method);
  const double grass = paddock.GetDoubleValue(GRASS);
  const double water = std::clamp(0.5 + TheFarm().GetDoubleValue(RAIN) / 5.0, 0.0, 1.0);
  const double nitrogen = 0.7 + 0.3 * std::min(paddock.GetDoubleValue(NITROGEN) / 150.0, 1.5);
  const double gain = herdParameters.growthRate * grass * (1.0 - grass / herdParameters.ceiling);
  paddock.SetDoubleValue(GRASS, grass + gain * nitrogen * water * TemperatureFactor(Temperature()));
}

void Nothing(ProcessMethod* /*method*/) {}

/// Cuts what the selection finds down to a short sward.
void MakeHay(ProcessMethod* /*method*/) {
  constexpr double cutAt = 1500.0;
  for (BasicEntity* found : Selected("hayPaddocks")) {
    auto& paddock = static_cast<Entity&>(*found);
    const double cut = std::max(0.0, paddock.GetDoubleValue(GRASS) - cutAt);
    paddock.SetDoubleValue(HAY, paddock.GetDoubleValue(HAY) + cut);
    paddock.SetDoubleValue(GRASS, paddock.GetDoubleValue(GRASS) - cut);
  }
}

// The herd on its paddocks -----------------------------------------------------------------------------

void MoveTo(Entity* paddock) {
  Entity& herd = TheHerd();
  if (Entity* left = herd.GetEntityValue(PLACE)) left->SetIntValue(IS_OPEN, 0);
  herd.SetEntityValue(PLACE, paddock);
  if (paddock != nullptr) paddock->SetIntValue(IS_OPEN, 1);
}

/// Opens the paddock of most grass among those that are fit, once the present one is grazed down.
void Rotate(ProcessMethod* /*method*/) {
  const Entity* present = TheHerd().GetEntityValue(PLACE);
  if (present != nullptr && present->GetDoubleValue(GRASS) > herdParameters.residue) return;
  const std::unique_ptr<Tableau<DescriptedEntity*>> fit(
      EntityTabToDescriptedEntityTab(Selected("fitPaddocks")));
  if (!fit->empty()) MoveTo(static_cast<Entity*>(MaxValued(fit.get(), GRASS)));
}

void Stable(ProcessMethod* /*method*/) { MoveTo(nullptr); }

/// At noon of a hot day the cows stay in the shade: the event waits for an hour less hot.
int IsBearable(ProcessMethod* /*method*/) { return Temperature() > 27.0 && HourOfDay() < 18 ? 0 : 1; }

double IntakeWanted(const Entity& cow) {
  return herdParameters.intake / 2.0 * (0.4 + cow.GetDoubleValue(WEIGHT) / 1000.0);
}

/// Half a day. What grass is left above the stubble is shared out in proportion to what each cow wants.
void Graze(ProcessMethod* /*method*/) {
  Entity& herd = TheHerd();
  Entity* paddock = herd.GetEntityValue(PLACE);
  double wanted = 0.0;
  ForEachCow([&](Entity& cow) { wanted += IntakeWanted(cow); });
  const double area = paddock != nullptr ? paddock->GetDoubleValue(AREA) : 0.0;
  const double offered =
      paddock != nullptr ? (paddock->GetDoubleValue(GRASS) - Paddock::stubble) * area : wanted;  // hay
  const double share = std::min(1.0, offered / wanted);
  ForEachCow([&](Entity& cow) { cow.SetDoubleValue(INTAKE, IntakeWanted(cow) * share); });
  if (paddock == nullptr) return;
  const double eaten = wanted * share / area;
  paddock->SetDoubleValue(GRASS, paddock->GetDoubleValue(GRASS) - eaten);
  paddock->SetDoubleValue(GRAZED, paddock->GetDoubleValue(GRAZED) + eaten);
  paddock->IncrValue(HALF_DAYS);
}

// Milk -------------------------------------------------------------------------------------------------

/// Kilograms a day.
double LactationCurve(int daysInMilk) {
  return herdParameters.woodA * std::pow(daysInMilk, herdParameters.woodB) *
         std::exp(-herdParameters.woodC * daysInMilk);
}

/// Heifers give less, and hunger and heat cost milk.
double MilkOfADay(const Entity& cow) {
  const int days = cow.GetIntValue(DAYS_IN_MILK);
  if (days == 0) return 0.0;
  const double maturity = std::min(1.0, 0.70 + 0.10 * cow.GetIntValue(CALVINGS));
  const double fed = std::min(1.0, cow.GetDoubleValue(INTAKE) / IntakeWanted(cow));
  const double heat = std::max(0.0, 1.0 - herdParameters.heatLoss * std::max(0.0, Temperature() - 22.0));
  return LactationCurve(days) * maturity * (0.5 + 0.5 * fed) * heat;
}

/// A cow puts on what milk and her own body leave of her intake.
void ChangeWeight(Entity& cow) {
  const double gain = 0.14 * cow.GetDoubleValue(INTAKE) - 0.022 * cow.GetDoubleValue(MILK) -
                      0.001 * cow.GetDoubleValue(WEIGHT);
  cow.SetDoubleValue(WEIGHT, std::clamp(cow.GetDoubleValue(WEIGHT) + gain, 400.0, 850.0));
}

/// One of the two milkings of a day; what a day changes in a cow is reckoned in the evening.
void MilkHerd(ProcessMethod* /*method*/) {
  Entity& herd = TheHerd();
  const bool isEvening = HourOfDay() >= 12;
  double tank = herd.GetDoubleValue(TANK);
  ForEachCow([&](Entity& cow) {
    const double capacity = cow.GetComponent(UDDER)->GetDoubleValue(CAPACITY);
    const double milk = std::min(MilkOfADay(cow) / 2.0, capacity);
    cow.SetDoubleValue(MILK, 2.0 * milk);
    cow.SetDoubleValue(SEASON_MILK, cow.GetDoubleValue(SEASON_MILK) + milk);
    if (cow.GetIntValue(WITHHELD) > 0)
      cow.DecrValue(WITHHELD);
    else
      tank += milk;
    if (!isEvening) return;
    ChangeWeight(cow);
    if (cow.GetIntValue(DAYS_IN_MILK) > 0) cow.IncrValue(DAYS_IN_MILK);
  });
  herd.SetDoubleValue(TANK, tank);
}

/// The cows that are near the end of their lactation get their rest before the next calf.
void DryOff(ProcessMethod* /*method*/) {
  for (BasicEntity* cow : Selected("lateCows")) {
    static_cast<Entity*>(cow)->SetIntValue(DAYS_IN_MILK, 0);
    static_cast<Entity*>(cow)->SetDoubleValue(MILK, 0.0);
  }
}

// Calvings and culling ---------------------------------------------------------------------------------

void Calve(ProcessMethod* method) {
  Entity* cow = ProcessedBy(method);
  if (cow == nullptr) return;  // culled before
  RNG& random = *pCurrentSim->GetRandomGenerator();
  auto* const calf = new Calf();
  calf->SetStringValue(SEX, random.rand_open01() < 0.5 ? "femelle" : "mâle");
  calf->SetDoubleValue(BIRTH_WEIGHT, 40.0 + 4.0 * random.RNOR());
  cow->AddEntityValueElement(CALVES, calf);
  cow->IncrValue(CALVINGS);
  cow->SetIntValue(DAYS_IN_MILK, 1);
  cow->SetIntValue(TERM, 0);
  cow->SetDoubleValue(WEIGHT, cow->GetDoubleValue(WEIGHT) - calf->GetDoubleValue(BIRTH_WEIGHT) - 15.0);
}

void PostCalving(Entity& cow, int clock) {
  auto* const calving = static_cast<DiscreteProcess*>(NewHerdProcess("calving"));
  calving->ProcessedEntity(&cow);
  Event* const event = NewHerdEvent("calving");
  event->AddProcessAction(calving, EXEC);
  if (pCurrentSim->InsertInAgendaEvents(event, 30, clock) != 0) return;
  event->DeleteProcesses();
  event->DeleteInDepth();
}

/// Cows differ: in weight, and in the day of their last calving.
void TellApart(Entity& cow, RNG& random) {
  cow.SetDoubleValue(WEIGHT, cow.GetDoubleValue(WEIGHT) + 25.0 * std::clamp(random.RNOR(), -3.0, 3.0));
  if (const int days = cow.GetIntValue(DAYS_IN_MILK); days > 0)
    cow.SetIntValue(DAYS_IN_MILK, std::max(1, days + static_cast<int>(20.0 * random.RNOR())));
}

/// Each cow that is due calves around her term, by a normal law of six days.
void PlanSeason(ProcessMethod* /*method*/) {
  constexpr int hoursADay = 24;
  const int today = DayOfYear();
  RNG& random = *pCurrentSim->GetRandomGenerator();
  ForEachCow([&](Entity& cow) {
    TellApart(cow, random);
    const int term = cow.GetIntValue(TERM);
    if (term == 0) return;
    const double day = term - today + 6.0 * random.RNOR();
    PostCalving(cow, pCurrentSim->Clock() + static_cast<int>(std::max(0.5, day) * hoursADay));
  });
}

/// The events to come that are about the cow leave the agenda.
void ForgetEventsOf(const Entity& cow) {
  Tableau<Event*> about;
  for (pCurrentSim->GoHeadInAgenda(); pCurrentSim->IsCurrentInAgenda(); pCurrentSim->GoNextInAgenda()) {
    Event* const event = pCurrentSim->GetCurrentInAgenda();
    if (event->LengthListProcessAction() == 0) continue;
    Process* const process = event->FirstProcess();
    if (process->HasProcessedEntity() != 0 && process->ProcessedBasicEntity() == &cow) about.push_back(event);
  }
  for (Event* event : about) pCurrentSim->RemoveFromAgendaEvents(event, 1);
}

/// Sells the cow of least milk among those that the selection finds, with her udder; her calves stay.
void Cull(ProcessMethod* /*method*/) {
  const std::unique_ptr<Tableau<DescriptedEntity*>> found(
      EntityTabToDescriptedEntityTab(Selected("oldCows")));
  if (found->empty()) return;
  auto* const cow = static_cast<Entity*>(MinValued(found.get(), SEASON_MILK));
  ForgetEventsOf(*cow);
  TheHerd().RemoveElement(cow);
  if (!TheHerd().HasAsElement(cow)) cow->DeleteInDepth();  // the herd may refuse
}

// Weather ----------------------------------------------------------------------------------------------

void EndHeat(ProcessMethod* /*method*/) { TheFarm().SetDoubleValue(HEAT, 0.0); }

/// A week of heat, whose end is posted before all other events of its hour.
void BeginHeat(ProcessMethod* /*method*/) {
  constexpr int week = 7 * 24;
  TheFarm().SetDoubleValue(HEAT, 9.0);
  auto* const end = new DiscreteProcess(K_INT_UNSIGNIFICANT, "heatEnd");
  end->SetExec(EndHeat);
  auto* const event = new DiscreteExecution(pCurrentSim->Clock() + week, end);
  event->SetPriorityDegree(0);
  if (pCurrentSim->InsertInAgendaEvents(event) != 0) return;
  event->DeleteProcesses();
  event->DeleteInDepth();
}

// Names ------------------------------------------------------------------------------------------------

struct ProcessRow {
  const char* name;
  int classId;  ///< of the entity that it works on
  void (*body)(ProcessMethod*);
  int (*precondition)(ProcessMethod*);
};

constexpr ProcessRow processRows[] = {
    {"rotation", FARM, Rotate, nullptr},  {"grazing", HERD, Graze, IsBearable},
    {"milking", HERD, MilkHerd, nullptr}, {"haymaking", FARM, MakeHay, nullptr},
    {"stabling", HERD, Stable, nullptr},  {"dryingOff", HERD, DryOff, nullptr},
    {"calving", COW, Calve, nullptr},     {"planning", HERD, PlanSeason, nullptr},
    {"culling", HERD, Cull, nullptr},     {"heat", FARM, BeginHeat, nullptr},
};

constexpr const char* eventNames[] = {"turnout",  "rotation",  "grazing", "milking",  "haymaking",
                                      "housing",  "dryingOff", "calving", "planning", "growth",
                                      "heatWave", "culling",   "weather"};

Process* NewGrowth() {
  auto* const growth = new ContinuousProcess(K_INT_UNSIGNIFICANT, "growth");
  growth->ProcessedEntityClassId(PADDOCK);
  growth->SetInitialize(Nothing);
  growth->SetGoOneStepForward(Grow);
  growth->SetStop(Nothing);
  return growth;
}

Process* NewDiscrete(const ProcessRow& row) {
  auto* const process = new DiscreteProcess(K_INT_UNSIGNIFICANT, row.name);
  process->ProcessedEntityClassId(row.classId);
  process->SetExec(row.body);
  if (row.precondition != nullptr) process->SetPrecondition(row.precondition);
  return process;
}

}  // namespace

Event* NewHerdEvent(const char* className) {
  for (const char* known : eventNames)
    if (std::strcmp(known, className) == 0) return new Event(known);
  return nullptr;
}

Process* NewHerdProcess(const char* className) {
  if (std::strcmp(className, "growth") == 0) return NewGrowth();
  for (const ProcessRow& row : processRows)
    if (std::strcmp(row.name, className) == 0) return NewDiscrete(row);
  return NewHerdReader(className);
}
