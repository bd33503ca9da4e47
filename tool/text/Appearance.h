// tool/text/Appearance.h - how text looks: colours, drawn lines, characters beyond ASCII.
#ifndef VEXPA_TOOL_TEXT_APPEARANCE_H_
#define VEXPA_TOOL_TEXT_APPEARANCE_H_

#include <cstddef>
#include <string>

namespace vexpa_tool {

enum class When { Auto, Always, Never };

struct AppearanceOptions {
    When colour = When::Auto;
    bool asciiOnly = false;
};

struct Appearance {
    bool hasColour = false;   // of results
    bool drawsLines = false;  // with the characters made for it, else with ASCII
    bool asciiOnly = false;   // whatever is beyond ASCII stands escaped
};

// Decided once, before there are threads. Colour is for terminals, unless the options or the
// environment (NO_COLOR, CLICOLOR_FORCE, TERM=dumb) say otherwise; and it only repeats what
// words say.
void DecideAppearance(const AppearanceOptions& options);
const Appearance& TheAppearance();

bool IsTerminal(int descriptor);
// A terminal that knows more than lines of text.
bool TakesControls(int descriptor);
// The columns of the terminal, else those that COLUMNS says, else 80.
std::size_t TerminalWidth(int descriptor);

enum class Ink { Plain, Strong, Faint, Good, Notice, Bad };

// The text in this ink, or as it is when there is no colour. Plain and empty text stays.
std::string Inked(Ink ink, const std::string& text);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_APPEARANCE_H_
