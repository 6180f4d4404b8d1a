#include "kalve/engine/Simulation.h"

#include "kalve/foundations/CoreException.h"

Simulation* pCurrentSim = nullptr;
int gCurrentSimNumId = K_INT_UNSIGNIFICANT;
int gNbGenInsert = 0;
int gFinalClock = K_INTMAX;
int gEquallyPlacedEventFlag = 0;
int g_KV_actionLog = 0;
int g_KV_actionLog_begClock = 0;
int g_KV_actionLog_endClock = -1;
int gTraceActionMode = 0;

BasicEntity* Simulation::SimulatedBasicEntity() const {
  if (mSimulatedEntity == nullptr) NoSimulatedEntity();
  return mSimulatedEntity;
}
