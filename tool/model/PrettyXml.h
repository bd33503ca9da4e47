// tool/model/PrettyXml.h - XML with a line for each tag.
#ifndef VEXPA_TOOL_MODEL_PRETTYXML_H_
#define VEXPA_TOOL_MODEL_PRETTYXML_H_

#include <string>
#include <string_view>

namespace vexpa_tool {

// The document with the white space between its tags made anew, so that it shows its depth;
// it ends with a line feed.
//
// Nothing else changes, not a byte of a tag. White space stays where it may mean something:
// in an element that has other text beside it or no element in it, and below xml:space
// "preserve". Throws an XmlError where ScanMarkup does.
std::string PrettyXml(std::string_view document);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PRETTYXML_H_
