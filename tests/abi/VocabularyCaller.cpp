// A caller that was compiled long ago makes attribute sets and lets a builder assemble them.

#include <cstdint>
#include <cstdio>
#include <string>
#include <typeinfo>
#include <vector>

#include "tests/abi/CompiledCaller.h"

namespace {

constexpr std::uint32_t kTextToken = 0xFFFFFFFF;
constexpr std::uint32_t kVal = 0x00010258, kP = 0x000100E6, kR = 0x000100C3;  // of WordprocessingML
constexpr const char* kWordUri = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

// A parser's attribute list, with a virtual table made by hand: an object is a pointer to
// its table, then what its operations know of it.
struct Attribute {
    UnitText uri, name, value;
};

struct AttributeList {
    const void* const* table;
    std::vector<Attribute> attributes;
};

void Destroy(AttributeList*) {
    Fail("the library destroys its caller's list");
}
std::uint32_t GetLength(const AttributeList* list) {
    return static_cast<std::uint32_t>(list->attributes.size());
}
const unsigned short* GetUri(const AttributeList* list, std::uint32_t index) {
    const UnitText& uri = list->attributes.at(index).uri;
    return uri.empty() ? nullptr : uri.c_str();
}
const unsigned short* GetLocalName(const AttributeList* list, std::uint32_t index) {
    return list->attributes.at(index).name.c_str();
}
const unsigned short* GetUnused(const AttributeList*, std::uint32_t) {
    Fail("the library asks for a qualified name or a type");
}
const unsigned short* GetValue(const AttributeList* list, std::uint32_t index) {
    return list->attributes.at(index).value.c_str();
}

template <class Function>
const void* Entry(Function* function) {
    return reinterpret_cast<const void*>(function);
}

// Two words stand before the slots (Itanium C++ ABI 2.5.2): the offset to the top of the
// object, and its type.
constexpr std::size_t kFirstSlot = 2;

const void* const kListTable[] = {
    nullptr,       &typeid(AttributeList), Entry(Destroy),   Entry(Destroy),   Entry(GetLength),
    Entry(GetUri), Entry(GetLocalName),    Entry(GetUnused), Entry(GetUnused), Entry(GetValue)};

// A callback has one slot and keeps what is reported.
struct Callback {
    const void* const* table;
    std::uint32_t token;
    void* set;
    int calls;
};

void OnElement(Callback* callback, std::uint32_t token, void* set) {
    callback->token = token;
    ++callback->calls;
    // Sets are shared through a second table, one pointer further on; a handle comes back
    // through memory.
    void* face = static_cast<void**>(set) + 1;
    Slot<void** (*)(void**, void*)>(face, 0)(&callback->set, face);
}

const void* const kCallbackTable[] = {nullptr, &typeid(Callback), Entry(OnElement)};

struct Library {
    explicit Library(void* library)
        : start(Symbol<int (*)()>(library, "_vexpa_Initialize")),
          stop(Symbol<int (*)()>(library, "_vexpa_Terminate")),
          transform(
              Symbol<void** (*)(void**, const void*, const unsigned short*, const unsigned short*)>(
                  library, "_ZN4tarn5xmlfx9TransformEPKNS0_10AttributesEPKtS5_")),
          wrap(Symbol<void** (*)(void**, const unsigned short*, std::uint32_t)>(
              library, "_ZN4tarn5xmlfx9TransformEPKtj")),
          newBuilder(Symbol<void** (*)(void**, void*)>(
              library, "_ZN4tarn5xmlfx14XmlAttrBuilder3NewEPNS0_15XmlAttrCallbackE")),
          value(Symbol<const unsigned short* (*)(const void*)>(
              library, "_ZNK4tarn5xmlfx12XmlAttrValue8GetValueEv")),
          valueLength(Symbol<std::size_t (*)(const void*)>(
              library, "_ZNK4tarn5xmlfx12XmlAttrValue14GetValueLengthEv")) {}

    // Value strings lie behind the two tables of a set.
    std::string ValueOf(void* set) const {
        const void* face = static_cast<void**>(set) + 2;
        const std::string text = Ascii(value(face));
        Require(text.size() == valueLength(face), "GetValueLength");
        return text;
    }

    int (*start)();
    int (*stop)();
    void** (*transform)(void**, const void*, const unsigned short*, const unsigned short*);
    void** (*wrap)(void**, const unsigned short*, std::uint32_t);
    void** (*newBuilder)(void**, void*);
    const unsigned short* (*value)(const void*);
    std::size_t (*valueLength)(const void*);
};

void Release(void* object) {
    Slot<void (*)(void*)>(object, 2)(object);
}
std::uint32_t CountOf(void* set) {
    return Slot<std::uint32_t (*)(void*)>(set, 3)(set);
}
void* At(void* set, std::uint32_t index, std::uint32_t* token) {
    return Slot<void* (*)(void*, std::uint32_t, std::uint32_t*)>(set, 4)(set, index, token);
}
void* Find(void* set, std::uint32_t token) {
    return Slot<void* (*)(void*, std::uint32_t)>(set, 5)(set, token);
}

void* SetOf(const Library& library, const std::vector<Attribute>& attributes) {
    const AttributeList list{kListTable + kFirstSlot, attributes};
    void* set = nullptr;
    library.transform(&set, &list, Units(kWordUri).c_str(), Units("text").c_str());
    Require(set != nullptr, "Transform");
    return set;
}

const std::vector<Attribute> kAttributes = {
    {Units("urn:other"), Units("val"), Units("dropped")},
    {{}, Units("val"), Units("first")},
    {Units(kWordUri), Units("val"), Units("second")},
};

void MakeSets(const Library& library) {
    void* set = SetOf(library, kAttributes);
    Require(CountOf(set) == 2, "the number of attributes");
    Require(library.ValueOf(set) == "text", "the value string of the set");
    std::uint32_t token = 0;
    Require(library.ValueOf(At(set, 1, &token)) == "second" && token == kVal, "GetAt");
    Require(library.ValueOf(Find(set, kVal)) == "first", "Find");
    Require(Find(set, kP) == nullptr && At(set, 2, &token) == nullptr, "what is not there");
    Release(set);

    void* wrapped = nullptr;
    library.wrap(&wrapped, Units("x").c_str(), 5);
    Require(library.ValueOf(Find(wrapped, 5)) == "x", "Transform of a text");
    Release(wrapped);

    void* empty = nullptr;
    library.transform(&empty, nullptr, nullptr, nullptr);
    Require(CountOf(empty) == 0, "the empty set");
    Release(empty);
}

void StartElement(void* handler, std::uint32_t token, void* set) {
    Require(Slot<int (*)(void*, std::uint32_t, void*)>(handler, 3)(handler, token, set) == 1,
            "StartElement");
    Release(set);
}
void Characters(void* handler, const char* text) {
    Slot<void (*)(void*, const unsigned short*)>(handler, 4)(handler, Units(text).c_str());
}
void EndElement(void* handler, std::uint32_t token) {
    Slot<void (*)(void*, std::uint32_t)>(handler, 5)(handler, token);
}

// p, with two attributes, the text "a" and a child r, which has the text "b".
void BuildTree(const Library& library) {
    Callback callback{kCallbackTable + kFirstSlot, 0, nullptr, 0};
    void* builder = nullptr;
    library.newBuilder(&builder, &callback);
    Require(builder != nullptr, "XmlAttrBuilder::New");
    StartElement(builder, kP, SetOf(library, kAttributes));
    Characters(builder, "a");
    void* child = Slot<void* (*)(void*)>(builder, 6)(builder);
    Require(child != nullptr && child == Slot<void* (*)(void*)>(builder, 6)(builder),
            "GetChildHandler");
    StartElement(child, kR, SetOf(library, {}));
    Characters(child, "b");
    EndElement(child, kR);
    EndElement(builder, kP);
    void* more = SetOf(library, kAttributes);
    Slot<void (*)(void*, std::uint32_t, void*)>(builder, 8)(builder, kR, more);
    Release(more);
    Require(library.ValueOf(Find(callback.set, kTextToken)) == "a", "the text");
    Require(library.ValueOf(Find(Find(callback.set, kR), kTextToken)) == "b", "the child's text");
    Require(CountOf(callback.set) == 5, "AddChild");
    Slot<void (*)(void*)>(builder, 7)(builder);
    Require(CountOf(callback.set) == 0, "Reset");

    StartElement(builder, kP, SetOf(library, kAttributes));
    Characters(builder, "c");
    Release(callback.set);
    EndElement(builder, kP);
    Release(builder);

    // The set outlives its builder.
    Require(callback.calls == 2 && callback.token == kP, "OnElement");
    Require(CountOf(callback.set) == 3, "the attributes and the text");
    Require(library.ValueOf(callback.set) == "text", "the value string of the element");
    Require(library.ValueOf(Find(callback.set, kTextToken)) == "c", "the text of the next element");
    Release(callback.set);
}

// Names have tokens between start and end only.
void UseUninitialized(const Library& library) {
    void* set = SetOf(library, kAttributes);
    Require(CountOf(set) == 0, "a vocabulary that is empty");
    Release(set);
}

}  // namespace

int main(int argc, char** argv) {
    Require(argc == 2, "usage: library");
    const Library library(Load(argv[1]));
    for (int round = 0; round < 2; ++round) {
        Require(library.start() == 0 && library.start() == 0, "_vexpa_Initialize");
        Require(library.stop() == 0, "_vexpa_Terminate");
        MakeSets(library);
        BuildTree(library);
        Require(library.stop() == 0, "the last _vexpa_Terminate");
    }
    UseUninitialized(library);
    std::puts("compiled caller: done");
    return 0;
}
