// tool/text/Unicode.h - UTF-16 and UTF-8, and which characters a terminal should not get.
#ifndef VEXPA_TOOL_TEXT_UNICODE_H_
#define VEXPA_TOOL_TEXT_UNICODE_H_

#include <string>
#include <string_view>

#include "vexpa/base/Utf8.h"

namespace vexpa_tool {

// Takes the first character off `text`, which is not empty; U+FFFD for an unpaired surrogate.
char32_t TakeCharacter(std::u16string_view& text);

// The same for UTF-8 that this program has made or checked.
char32_t TakeUtf8(std::string_view& utf8);

void AppendUtf8(char32_t character, std::string& utf8);
void AppendUtf16(char32_t character, std::u16string& text);

// Every character as it is, a byte order mark at the start included; what is ill-formed becomes U+FFFD.
using tarn::FromUtf8;
using tarn::ToUtf8;

// Control characters, line separators, controls of the writing direction and
// non-characters: printed as they are, a name from a package could move the cursor, forge
// a line or read backwards.
bool IsUnsafeToPrint(char32_t character);

// UTF-8 for people: what is unsafe to print stands as \x1b, \u202e or \U0001fffe.
std::string Printable(std::u16string_view text);

// Takes the first line off `text`, which is not empty, and its line feed with it.
std::string_view TakeLine(std::string_view& text);

// A line of document text in UTF-8 or not: tabs stay, bytes that are no text become U+FFFD.
std::string PrintableLine(std::string_view bytes);

// From now on, or no longer, what is beyond ASCII is escaped as well. Before there are threads.
void EscapeBeyondAscii(bool escape);

// Printable; two quotes for the empty text, which would leave a column without a word.
std::string PrintableOrQuotes(std::u16string_view text);

// The other way round: what Printable wrote as \x1b, \u202e or \U0001fffe is that character.
std::u16string Unescaped(std::u16string_view printable);

// The columns that the text takes on a terminal: a result of Printable, in ink or without.
std::size_t DisplayWidth(std::string_view printable);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_UNICODE_H_
