// tool/check/XmlScan.h - goes through a document and tells where it breaks off.
#ifndef VEXPA_TOOL_CHECK_XMLSCAN_H_
#define VEXPA_TOOL_CHECK_XMLSCAN_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vexpa_tool {

struct XmlPlace {
    std::uint64_t line = 1;
    std::uint64_t column = 1;  // in characters
};

struct XmlFault {
    XmlPlace place;
    std::string what;        // "mismatched tag"
    bool isRefusal = false;  // nothing is wrong with the XML: going on would cost too much
};

struct XmlStartTag {
    const char* name;               // UTF-8
    const char* const* attributes;  // names and values in turn, up to a null
    const void* parser;

    // Where it begins. Costs something, so it is counted only when asked for.
    XmlPlace Place() const;
};

// Takes a document piece by piece, in the encodings that the library's parser reads. What it
// needs of memory and time follows the document's size: entities may not make it grow without
// bound, and nothing outside of it is read.
class XmlScan {
public:
    enum class Names {
        AsWritten,  // prefix:local
        Resolved,   // URI, kNamespaceEnd, local; the local name alone without a namespace
    };
    static constexpr char kNamespaceEnd = '\n';

    // Calls `handler` for each start tag. It may throw; that ends Feed or Finish.
    using Handler = std::function<void(const XmlStartTag& tag)>;
    XmlScan(Names names, Handler handler);
    ~XmlScan();

    // After the first fault nothing more is looked at.
    void Feed(std::string_view piece);
    // The whole of the document was fed. The first fault, if there was one.
    std::optional<XmlFault> Finish();

    bool HasFault() const;
    bool HasDocumentType() const;

private:
    class Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_XMLSCAN_H_
