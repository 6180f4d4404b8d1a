// Real time: the chronometer of a run, and the wait between two events.
//
// InitChrono, then StartChrono and PauseChrono, which accumulates, then a print, then CloseChrono. There is
// one chronometer, and its state is public for applications. The prints leave their text in gTimeString.
#pragma once

struct timeval;

/// The last start. It belongs to the chronometer, is null before the first InitChrono, and is left dangling
/// by CloseChrono.
extern timeval* mytp;
/// Start of the running measure: seconds, and microseconds within the second.
extern long gSecDeb;
extern long gUSecDeb;
/// Accumulated microseconds.
extern long gMicrocumul;

void InitChrono();
/// BadChronometerHandling outside InitChrono and CloseChrono, as for the next two.
void StartChrono();
/// Adds the time since the start, which stays: a second pause without a new start counts the span again.
/// Never started, it is the same failure.
void PauseChrono();
void CloseChrono();

/// True between InitChrono and CloseChrono once a measure has been started.
bool IsChronometerActive();

/// "12s 034ms 567".
void MicroPrintChrono();
/// "12''034".
void MilliPrintChrono();
/// "1h02'03", with one second more from half a second on, whatever the rest.
void PrintChrono();

/// Waits `ms` milliseconds, at most 35 minutes, without giving the processor up: a sleep of the system would
/// last too long for the millisecond after each event.
void Kalve_millisleep(int ms);
