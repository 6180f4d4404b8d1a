// What a season gave, in a page for whoever runs the farm.
#pragma once

/// Prints the summary of grass, milk and animals, in French, from the living entities.
void PrintSummary();

/// Prints one line for a run of a design: its number, the two factors, and what they gave.
void PrintRunLine();
