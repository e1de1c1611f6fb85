// SPDX-License-Identifier: MIT

#include "shell/preferences/preferences_help.h"

namespace quandrel {

namespace {

constexpr const char* kHelp = R"(PREFERENCES

OK applies the preferences: all open plots are redrawn. With "Save settings"
they are also kept for later sessions; otherwise they apply until Quandrel
ends. Cancel discards every change, including those of colours and fonts.
"Defaults" shows what Quandrel starts with; OK applies it.

SYMBOLS, LINES, ROSES
Click on a sample, then choose its shape, its colour and its size or width.
All samples are drawn as plots will be.

- For the pairs of "+ve" and "-ve" plunges, the left mouse button chooses for
  the first and the right one for the second, whichever is selected.
- Rows of open plots follow their style. A row whose symbol you have changed
  yourself keeps it.
- "more colours ..." replaces the selected colour by another one. Everything
  that has this colour changes with it.
- Symbol "none" hides rows; the line style "none" hides lines.
- On the page of roses, a click on the picture selects what is there. White
  blank parts take the background of the plot.

PLOT STYLE
- The four styles of axes of nets and the three of roses, as the samples show
  them.
- The width of new plot windows is a percentage of the main window's. Their
  height is the width times the ratio: 0.75 is three to four. A number above
  1 is taken as a percentage.
- "Use last resize" gives new windows the size that you last gave to one. It
  ends with the session.

FONTS
- Fonts of the boxes around the net on the screen, and those on printed pages.
- The background and the colour of axes and circle are those of all plots on
  the screen. Copies, prints and exports are always on white; axes that would
  not be visible on white paper are black there.

GENERAL
- After a change of the maximum number of plots, Quandrel asks whether to save
  it; it applies from the next start.
- File dialogs start in the folder of the file that you last opened, or in
  the one that you set here.
- "pitch" or "rake" is the word for the angle of a line in a plane.
- Formulas of statistics: some results in the boxes are Quandrel's own by
  definition; where the textbook's result differs, it is shown below in
  brackets. "Textbook" uses the textbook's formulas for the boxes, arrows,
  arcs and cones instead. Plots with a choice under Plot > Formulas keep it.
- Use decimals of orientations: new plots start with Plot > Use Decimals
  switched on. Open plots and plots of plot files keep their own choice.
- Convert 'invalid' decimal-like numbers: a number of an appended column with
  the other decimal delimiter is read as a number.
- Include non-data lines: a plot that is saved as text keeps comments,
  headings and other lines of its files that are not data, in their places.
- Single isolated points: contour plots mark each point that has no other
  point within its counting cone.
)";

} // namespace

QString PreferencesHelp() {
    return kHelp;
}

} // namespace quandrel
