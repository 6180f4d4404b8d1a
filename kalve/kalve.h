// The whole kernel.
#pragma once

#include "kalve/engine/Event.h"
#include "kalve/engine/Simulation.h"
#include "kalve/foundations/Chronometer.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Liste.h"
#include "kalve/foundations/NameTables.h"
#include "kalve/foundations/Records.h"
#include "kalve/foundations/Rng.h"
#include "kalve/foundations/SharedConstants.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/outputs/DescTimeSeries.h"
#include "kalve/specs/DescValueSpec.h"
