#include "tool/commands/TokensOfPart.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "tool/model/AnnotatedXml.h"
#include "tool/model/NameLookup.h"
#include "tool/model/NamespacePrefixes.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartArgument.h"
#include "tool/model/PartReader.h"
#include "tool/model/PartTokens.h"
#include "tool/model/PrettyXml.h"
#include "tool/model/XmlElements.h"
#include "tool/text/JsonText.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::uint64_t kIndentedLevels = 16;
constexpr std::size_t kNameColumn = 40;
constexpr std::size_t kTokenColumn = 10;

// One line, written as it comes: a part may have millions.
void WriteName(const std::string& lead, std::u16string_view uri, const std::u16string& name,
               std::uint32_t token) {
    std::u16string qualified(uri.empty() ? std::u16string_view() : PrefixOf(uri, token));
    if (!qualified.empty()) qualified += u':';
    const bool hasToken = token != tarn::xmlfx::kNullToken;
    StandardOutput().WriteLine(Padded(hasToken ? TokenText(token) : "-", kTokenColumn) + "  " +
                               Padded(lead + Printable(qualified + name), kNameColumn) + "  " +
                               PrintableOrQuotes(uri));
}

void WriteElement(const XmlElement& element, const ElementTokens& tokens) {
    const std::string indent(2 * std::min(element.depth, kIndentedLevels), ' ');
    WriteName(indent, element.uri, element.name, tokens.element);
    for (std::size_t i = 0; i < element.attributes.size(); ++i) {
        const XmlAttribute& attribute = element.attributes[i];
        WriteName(indent + "  @", attribute.uri, attribute.name, tokens.attributes[i]);
    }
}

void WriteElementJson(const XmlElement& element, const ElementTokens& tokens) {
    Json attributes = Json::array();
    for (std::size_t i = 0; i < element.attributes.size(); ++i) {
        const XmlAttribute& attribute = element.attributes[i];
        attributes.push_back({{"uri", ToUtf8(attribute.uri)},
                              {"name", ToUtf8(attribute.name)},
                              {"token", tokens.attributes[i]},
                              {"value", ToUtf8(attribute.value)}});
    }
    StandardOutput().WriteLine(JsonLine({{"depth", element.depth},
                                         {"uri", ToUtf8(element.uri)},
                                         {"name", ToUtf8(element.name)},
                                         {"token", tokens.element},
                                         {"attributes", std::move(attributes)}}));
}

// Throws an XmlError; false when the part cannot be extracted.
bool ReadElements(const InputFile& file, tarn::opc::Part& part, const ElementSink& sink) {
    XmlElements elements(sink);
    const auto feed = [&](const char* bytes, std::size_t size) { elements.Feed({bytes, size}); };
    if (!PartReader(file).Read(part, feed)) return false;
    elements.Finish();
    return true;
}

}  // namespace

void ShowTokensOfPart(const InputFile& file, const std::string& partName, bool json) {
    const auto package = OpenPackage(file);
    tarn::opc::Part& part = FindPart(*package, file, partName);
    const Vocabulary vocabulary;
    TokenTotals totals(vocabulary);
    const auto show = [&](const XmlElement& element) {
        const ElementTokens tokens = TokensOf(vocabulary, element);
        totals.Count(element, tokens);
        (json ? WriteElementJson : WriteElement)(element, tokens);
    };
    const auto partError = [&](const std::string& what) {
        return PartError(kReadOrWriteError, file, partName, what);
    };
    try {
        if (!ReadElements(file, part, show))
            throw partError("cannot be extracted: damaged or encrypted");
    } catch (const XmlError& error) {
        FlushOutput();
        throw partError(error.what());
    }
    FlushOutput();
    WriteNote(totals.Text());
}

void AnnotatePart(const InputFile& file, const std::string& partName) {
    const auto package = OpenPackage(file);
    tarn::opc::Part& part = FindPart(*package, file, partName);
    const auto partError = [&](const std::string& what) {
        return PartError(kReadOrWriteError, file, partName, what);
    };
    std::string xml;
    const auto append = [&](const char* bytes, std::size_t size) { xml.append(bytes, size); };
    if (!PartReader(file).Read(part, append))
        throw partError("cannot be extracted: damaged or encrypted");

    const Vocabulary vocabulary;
    TokenTotals totals(vocabulary);
    try {
        xml = AnnotatedXml(PrettyXml(xml), vocabulary,
                           [&](const XmlElement& element, const ElementTokens& tokens) {
                               totals.Count(element, tokens);
                           });
    } catch (const XmlError& error) {
        throw partError(error.what());
    }
    for (std::string_view rest = xml; !rest.empty();) {
        StandardOutput().WriteLine(PrintableLine(TakeLine(rest)));
    }
    FlushOutput();
    WriteNote(totals.Text());
    for (const std::string& line : totals.UnknownLines()) WriteNote(line);
}

}  // namespace vexpa_tool
