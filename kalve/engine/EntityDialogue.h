// The sequences of the dialogue that speak of entities. Each function reads the words that belong to it, all
// of them even when it knows no such entity, and answers on standard output. Nothing ends the run here but
// what a change sets off in the model.
//
// A descriptor is named by its class name, an entity by its instance name.
#pragma once

#include <string>

#include "kalve/foundations/Forward.h"

/// QUERY DESCRIPTORS entity: all public descriptors with their values.
void AnswerDescriptors();
/// QUERY DESCRIPTOR entity descriptor kind: a variable's present value or what was recorded of it.
void AnswerDescriptor(const Simulation& simulation);
/// QUERY GRAPH entity descriptor: plots the variable from now on.
void AnswerGraph();
/// QUERY INSTANCES kind class: instances of a class. `simulated`, which may be null, is the entity whose
/// class the word ROOT names.
void AnswerInstances(const BasicEntity* simulated);

// A name that no variable has means the last variable of the entity: that one is changed. Without variables
// nothing happens.
/// MODIFY word entity descriptor value. Of an unknown entity the value is not read.
void ModifyDescriptor();
/// SET SAMPLING entity descriptor step, from the third word on.
void SetSampling();
/// The end of UNQUERY GRAPH.
void StopPlotting(BasicEntity* entity, const std::string& descriptor);
