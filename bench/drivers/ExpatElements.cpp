#include <expat.h>

#include <cstring>
#include <memory>
#include <stdexcept>

#include "bench/drivers/NamedParts.h"

namespace vexpa_bench {

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);  // npos + 1 is the start
}

void XMLCALL OnStart(void* sink, const XML_Char* name, const XML_Char** attributes) {
    const auto value = [attributes](std::string_view wanted) -> std::string_view {
        for (const XML_Char** at = attributes; *at != nullptr; at += 2) {
            if (wanted == at[0]) return at[1];
        }
        return {};
    };
    (*static_cast<const ElementSink*>(sink))({LocalName(name), value});
}

}  // namespace

// One parser for all, reset between documents: its set-up costs more than a small document.
void ParseElements(std::string_view xml, const ElementSink& sink) {
    static const std::unique_ptr<XML_ParserStruct, FreeParser> parser(XML_ParserCreate(nullptr));
    XML_ParserReset(parser.get(), nullptr);
    XML_SetUserData(parser.get(), const_cast<ElementSink*>(&sink));
    XML_SetStartElementHandler(parser.get(), OnStart);
    if (XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK) {
        throw std::runtime_error("malformed XML");
    }
}

}  // namespace vexpa_bench
