// examples/importer/TreeBuilder.h - lets an XmlAttrBuilder make one tree of a parser's events.
#ifndef VEXPA_EXAMPLES_IMPORTER_TREEBUILDER_H_
#define VEXPA_EXAMPLES_IMPORTER_TREEBUILDER_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "examples/importer/Importer.h"
#include "vexpa/xmlfx/Attributes.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"

namespace importer {

// Stands between the parser's handler and the library. It keeps the open elements in a
// list, so no depth of nesting uses up the stack.
class TreeBuilder : tarn::xmlfx::XmlAttrCallback {
public:
    explicit TreeBuilder(const Limits& limits);

    // A prefix, or none, is declared; before the StartElement of the element that does so.
    void DeclareNamespace(std::size_t uriLength) const;
    void StartElement(const unsigned short* uri, const unsigned short* localName,
                      const tarn::xmlfx::Attributes& attributes);
    // Parsers cut text where their buffers end, so the pieces are put together here.
    void Characters(std::u16string_view piece);
    void EndElement();

    // The tree, once the parser has seen the end of the document.
    Tree TakeTree() { return std::move(tree_); }

private:
    struct OpenElement {
        tarn::xmlfx::XmlAttrHandler* handler;  // [borrowed]
        std::uint32_t token;
    };

    void OnElement(std::uint32_t token, tarn::xmlfx::XmlRoAttr* set) override;
    tarn::xmlfx::XmlAttrHandler& NextHandler();
    void CountNodes(std::uint64_t count);
    void EndText();

    Limits limits_;
    std::uint64_t nodes_ = 0;
    Tree tree_;
    std::u16string text_;
    std::vector<OpenElement> open_;
    tarn::Handle<tarn::xmlfx::XmlAttrBuilder> builder_;
};

}  // namespace importer

#endif  // VEXPA_EXAMPLES_IMPORTER_TREEBUILDER_H_
