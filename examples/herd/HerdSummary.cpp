#include "examples/herd/HerdSummary.h"

#include <cstdio>

#include "examples/herd/HerdClasses.h"

namespace {

/// Count, mean and extremes of a value over the cows.
struct Spread {
  int count = 0;
  double sum = 0.0;
  double low = 0.0;
  double high = 0.0;
  void Add(double value) {
    low = count == 0 || value < low ? value : low;
    high = count == 0 || value > high ? value : high;
    sum += value;
    ++count;
  }
  double Mean() const { return count > 0 ? sum / count : 0.0; }
};

template <class Body>
void ForEach(int classId, Body body) {
  for (BasicEntity* entity : *GetEntityList(classId)) body(static_cast<Entity&>(*entity));
}

void PrintGrass() {
  std::printf("\n%-10s %6s %10s %12s %12s %10s\n", "Parcelle", "ha", "demi-jours", "pâturé kg/ha",
              "foin kg/ha", "sur pied");
  double area = 0.0;
  double eaten = 0.0;
  double hay = 0.0;
  ForEach(PADDOCK, [&](const Entity& paddock) {
    const double hectares = paddock.GetDoubleValue(AREA);
    std::printf("%-10s %6.1f %10d %12.0f %12.0f %10.0f\n", paddock.InstanceName(), hectares,
                paddock.GetIntValue(HALF_DAYS), paddock.GetDoubleValue(GRAZED), paddock.GetDoubleValue(HAY),
                paddock.GetDoubleValue(GRASS));
    area += hectares;
    eaten += hectares * paddock.GetDoubleValue(GRAZED);
    hay += hectares * paddock.GetDoubleValue(HAY);
  });
  std::printf("%-10s %6.1f %10s %12.0f %12.0f\n", "ensemble", area, "", eaten / area, hay / area);
}

void PrintHerd() {
  Spread milk;
  Spread weight;
  int calves = 0;
  const Entity* best = nullptr;
  ForEach(COW, [&](const Entity& cow) {
    milk.Add(cow.GetDoubleValue(SEASON_MILK));
    weight.Add(cow.GetDoubleValue(WEIGHT));
    calves += cow.GetEntityTabValue(CALVES)->size();
    if (best == nullptr || cow.GetDoubleValue(SEASON_MILK) > best->GetDoubleValue(SEASON_MILK)) best = &cow;
  });
  if (best == nullptr) return;
  std::printf("\nVaches présentes : %d, veaux nés : %d\n", milk.count, calves);
  std::printf("Lait livré : %.0f kg ; par vache présente %.0f kg (de %.0f à %.0f)\n",
              GetFirstEntity(HERD)->GetDoubleValue(TANK), milk.Mean(), milk.low, milk.high);
  std::printf("Meilleure laitière : %s (%s), %.0f kg\n", best->InstanceName(), best->GetStringValue(BREED),
              best->GetDoubleValue(SEASON_MILK));
  std::printf("Poids vif : %.0f kg en moyenne (de %.0f à %.0f)\n", weight.Mean(), weight.low, weight.high);
}

}  // namespace

void PrintSummary() {
  std::printf("\nBILAN DE LA SAISON\n");
  PrintGrass();
  PrintHerd();
}

void PrintRunLine() {
  const double tank = GetFirstEntity(HERD)->GetDoubleValue(TANK);
  double area = 0.0;
  double eaten = 0.0;
  ForEach(PADDOCK, [&](const Entity& paddock) {
    area += paddock.GetDoubleValue(AREA);
    eaten += paddock.GetDoubleValue(AREA) * paddock.GetDoubleValue(GRAZED);
  });
  std::printf("\nessai %2d : %2d vaches, %3.0f kg N/ha ; lait %6.0f kg, herbe pâturée %4.0f kg/ha",
              pCurrentSim->GetNumId(), GetIntParameterValue("Herd", "cows"),
              GetRealParameterValue("Paddock", "nitrogen"), tank, eaten / area);
}
