#pragma once

// What a user meets of one dialog in a real window, and what it costs meanwhile. SDL video must be
// running. Each measure shows the dialog itself, over the window `host`.

#include <SDL.h>

#include <string>
#include <vector>

#include "bench_dialogs.h"

namespace quindle::bench {

// What is to be shown, over which window (null: none) and with which folder.
struct LiveSubject {
  const BenchDialog& dialog;
  SDL_Window* host;
  std::string folder;
};

// One figure of a measure.
struct Figure {
  std::string name;  // Lower case with underscores; its last word is the unit.
  double value;
};
using Figures = std::vector<Figure>;

// From the call to the end of the first frame, with the window shown; beside it the same for the
// floor, a bare window of the same size with one line of text. Medians of several rounds in turns.
Figures MeasureOpening(const LiveSubject& subject);

// The time of a single opening, the first of the process.
Figures MeasureFirstOpening(const LiveSubject& subject);

// As the floor of MeasureOpening, but the first window of the process, as large as a message box.
Figures MeasureFirstFloor(const LiveSubject& subject);

// Processor time of the whole process while the dialog stands open for five seconds, untouched.
Figures MeasureIdle(const LiveSubject& subject);

// The times between heartbeats while random input comes for five seconds; those in which a folder
// was listed or the dialog was opened anew are left out and counted apart.
Figures MeasureHeartbeatGaps(const LiveSubject& subject);

// From a notch of the wheel, at any moment of a frame, to the end of the present that shows it.
Figures MeasureWheel(const LiveSubject& subject);

// Peak of the resident memory while the dialog is open: of the whole process, and its growth over
// what the process had before.
Figures MeasureMemory(const LiveSubject& subject);

}  // namespace quindle::bench
