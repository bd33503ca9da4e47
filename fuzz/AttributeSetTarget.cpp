// Transform and builder, fed the events of a document that never was. A line of an input is
// an event, its first character says which:
//
//     @uri|name|value   an attribute of the element that starts next
//     <token            an element starts
//     .text             text
//     >                 it ends
//     {  }              on to the child elements, and back
//     +token            the oldest set that was kept is added
//     =token|value      a set with one attribute is added
//     !                 the handler is reset
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using namespace tarn;
using namespace tarn::xmlfx;
using vexpa_fuzz::Require;

struct Attribute {
    std::u16string uri;
    std::u16string name;
    std::u16string value;
};

class AttributeList : public Attributes {
public:
    explicit AttributeList(std::vector<Attribute> list) : list_(std::move(list)) {}

    unsigned int getLength() const override { return static_cast<unsigned int>(list_.size()); }
    const unsigned short* getURI(unsigned int i) const override { return Text(list_.at(i).uri); }
    const unsigned short* getLocalName(unsigned int i) const override { return Text(list_.at(i).name); }
    const unsigned short* getQName(unsigned int) const override { return nullptr; }
    const unsigned short* getType(unsigned int) const override { return nullptr; }
    const unsigned short* getValue(unsigned int i) const override { return Text(list_.at(i).value); }

private:
    static const unsigned short* Text(const std::u16string& text) { return ToUnits(text.c_str()); }

    std::vector<Attribute> list_;
};

// The field of a line up to the next bar.
std::u16string Field(std::string_view& line) {
    const std::size_t end = line.find('|');
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    return vexpa_fuzz::Units(field);
}

std::uint32_t Token(const std::u16string& digits) {
    std::uint32_t token = 0;
    for (const char16_t digit : digits) token = token * 16 + (digit & 15U);
    return token;
}

// Positions and tokens of one set tell the same story.
void CheckSet(const XmlRoAttr& set) {
    constexpr std::uint32_t kEnough = 64;
    Require(set.GetAt(set.GetCount(), nullptr) == nullptr, "a set ends");
    Require(set.GetValueLength() == TextLength(set.GetValue()), "a value ends with its NUL");
    std::vector<std::pair<std::uint32_t, XmlRoAttr*>> seen;
    for (std::uint32_t i = 0; i < set.GetCount() && i < kEnough; ++i) {
        std::uint32_t token = 0;
        XmlRoAttr* value = set.GetAt(i, &token);
        Require(value != nullptr, "every position holds a value");
        bool isFirst = true;
        for (const auto& [earlier, unused] : seen) isFirst = isFirst && earlier != token;
        if (isFirst) seen.emplace_back(token, value);
    }
    for (const auto& [token, value] : seen)
        Require(set.Find(token) == value, "the search gives the first of a token");
}

// Walks a set; shared ones make the tree wider than its memory, hence the limit.
void CheckTree(XmlRoAttr& root) {
    std::vector<const XmlRoAttr*> waiting = {&root};
    for (int visits = 0; !waiting.empty() && visits < 2000; ++visits) {
        const XmlRoAttr* set = waiting.back();
        waiting.pop_back();
        CheckSet(*set);
        for (std::uint32_t i = 0; i < set->GetCount() && i < 64; ++i)
            waiting.push_back(set->GetAt(i, nullptr));
    }
}

class Player : public XmlAttrCallback {
public:
    Player() : builder_(XmlAttrBuilder::New(this)), levels_{{builder_.Get()}} {}

    void Play(std::string_view line) {
        const char event = line.empty() ? '\0' : line.front();
        line.remove_prefix(line.empty() ? 0 : 1);
        switch (event) {
            case '@':
                return AddAttribute(line);
            case '<':
                return Start(line);
            case '{':
                return Descend();
            case '}':
                return Ascend();
            default:
                return InElement(event, line);
        }
    }

    void OnElement(std::uint32_t, XmlRoAttr* set) override {
        CheckTree(*set);
        if (kept_.size() < 100) kept_.push_back(set->Share());
    }

private:
    struct Level {
        XmlAttrHandler* handler;
        bool isOpen = false;
        bool hasStarted = false;
    };

    void AddAttribute(std::string_view line) {
        std::u16string uri = Field(line);
        std::u16string name = Field(line);
        attributes_.push_back({std::move(uri), std::move(name), vexpa_fuzz::Units(line)});
    }

    void Start(std::string_view line) {
        const std::uint32_t token = Token(vexpa_fuzz::Units(line));
        const AttributeList attributes(std::exchange(attributes_, {}));
        const Handle<XmlRoAttr> set =
            Transform(&attributes, ToUnits(u""), token % 2 == 0 ? nullptr : ToUnits(u"value"));
        Require(set->GetCount() <= attributes.getLength(), "no attribute is made up");
        CheckSet(*set);
        Level& level = levels_.back();
        Require(level.handler->StartElement(token, set.Get()) == 1, "an element starts");
        level.isOpen = level.hasStarted = true;
    }

    // A parser's elements nest, so only an open one has children.
    void Descend() {
        if (!levels_.back().isOpen || levels_.size() > 10000) return;
        XmlAttrHandler* child = levels_.back().handler->GetChildHandler();
        Require(child == levels_.back().handler->GetChildHandler(), "there is one child handler");
        levels_.push_back({child});
    }

    void Ascend() {
        if (levels_.size() == 1 || levels_.back().isOpen) return;
        levels_.pop_back();
    }

    void InElement(char event, std::string_view line) {
        Level& level = levels_.back();
        if (event == '!') return level.handler->Reset();
        if (!level.isOpen) return;
        switch (event) {
            case '.': {
                const std::u16string text = vexpa_fuzz::Units(line);
                return level.handler->Characters(ToUnits(text.c_str()));
            }
            case '>':
                level.isOpen = false;
                return level.handler->EndElement(Token(vexpa_fuzz::Units(line)));
            case '+':
                if (!kept_.empty())
                    level.handler->AddChild(Token(vexpa_fuzz::Units(line)), kept_.front().Get());
                return;
            case '=':
                return AddValue(level, line);
            default:
                return;
        }
    }

    static void AddValue(Level& level, std::string_view line) {
        const std::uint32_t token = Token(Field(line));
        const std::u16string value = vexpa_fuzz::Units(line);
        const Handle<XmlRoAttr> set = Transform(ToUnits(value.c_str()), token);
        CheckSet(*set);
        level.handler->AddChild(token, set.Get());
    }

    std::vector<Handle<XmlRoAttr>> kept_;
    std::vector<Attribute> attributes_;
    Handle<XmlAttrBuilder> builder_;
    std::vector<Level> levels_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    {
        Player player;
        for (vexpa_fuzz::Lines lines(vexpa_fuzz::Bytes(data, size)); !lines.AtEnd();)
            player.Play(lines.Next());
    }
    // Transform adds every URI it meets: without this a long run would end in a full memory.
    if (XmlMapper::GetNSMap().size() > 5000) {
        _vexpa_Terminate();
        _vexpa_Initialize();
    }
    return 0;
}
