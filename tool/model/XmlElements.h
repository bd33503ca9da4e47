// tool/model/XmlElements.h - the start tags of an XML document, one by one.
#ifndef VEXPA_TOOL_MODEL_XMLELEMENTS_H_
#define VEXPA_TOOL_MODEL_XMLELEMENTS_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vexpa_tool {

struct XmlAttribute {
    std::u16string uri;  // empty without a prefix
    std::u16string name;
    std::u16string value;
};

struct XmlElement {
    std::uint64_t depth = 0;  // 0 for the root
    std::uint64_t begin = 0;  // of its start tag, in the bytes of the document
    std::uint64_t end = 0;
    std::u16string uri;
    std::u16string name;
    std::vector<XmlAttribute> attributes;  // in document order; declarations of prefixes are none
};

// What is wrong with the document, and in which line.
class XmlError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

using ElementSink = std::function<void(const XmlElement& element)>;

// Takes a document in UTF-8 or UTF-16 piece by piece. Memory is needed for the tag at hand
// and the names of the open elements; a document type, which parts may not have (ECMA-376
// Part 2, 8.1.4) and which could ask for more, is an error.
class XmlElements {
public:
    explicit XmlElements(ElementSink sink);
    ~XmlElements();

    // Each throws an XmlError, or whatever the sink has thrown.
    void Feed(std::string_view piece);
    void Finish();

private:
    class Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_XMLELEMENTS_H_
