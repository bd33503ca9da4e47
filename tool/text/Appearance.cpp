#include "tool/text/Appearance.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kUsualWidth = 80;

Appearance appearance;

std::string_view Variable(const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nobody changes it
    return value == nullptr ? std::string_view() : value;
}

bool HasColour(When when) {
    if (when != When::Auto) return when == When::Always;
    if (!Variable("NO_COLOR").empty()) return false;
    const std::string_view force = Variable("CLICOLOR_FORCE");
    if (!force.empty() && force != "0") return true;
    return TakesControls(STDOUT_FILENO);
}

const char* CodeOf(Ink ink) {
    switch (ink) {
        case Ink::Strong:
            return "\x1b[1m";
        case Ink::Faint:
            return "\x1b[2m";
        case Ink::Good:
            return "\x1b[32m";
        case Ink::Notice:
            return "\x1b[33m";
        case Ink::Bad:
            return "\x1b[31m";
        case Ink::Plain:
            break;
    }
    return "";
}

}  // namespace

void DecideAppearance(const AppearanceOptions& options) {
    const bool isUtf8Terminal = IsTerminal(STDOUT_FILENO) && EnvironmentIsUtf8();
    const bool isOtherTerminal = IsTerminal(STDOUT_FILENO) && !EnvironmentIsUtf8();
    appearance.hasColour = HasColour(options.colour);
    appearance.asciiOnly = options.asciiOnly || isOtherTerminal;
    appearance.drawsLines = isUtf8Terminal && !options.asciiOnly;
    EscapeBeyondAscii(appearance.asciiOnly);
}

const Appearance& TheAppearance() {
    return appearance;
}

bool IsTerminal(int descriptor) {
    return isatty(descriptor) != 0;
}

bool TakesControls(int descriptor) {
    return IsTerminal(descriptor) && Variable("TERM") != "dumb";
}

std::size_t TerminalWidth(int descriptor) {
    winsize size = {};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    const std::string columns(Variable("COLUMNS"));
    const long said = std::strtol(columns.c_str(), nullptr, 10);
    return said > 0 ? static_cast<std::size_t>(std::min(said, 10'000L)) : kUsualWidth;
}

std::string Inked(Ink ink, const std::string& text) {
    if (!appearance.hasColour || ink == Ink::Plain || text.empty()) return text;
    return CodeOf(ink) + text + "\x1b[0m";
}

}  // namespace vexpa_tool
