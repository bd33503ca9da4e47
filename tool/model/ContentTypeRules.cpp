#include "tool/model/ContentTypeRules.h"

#include <functional>
#include <utility>

#include "tool/ExitStatus.h"
#include "tool/model/OpenPackage.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Result.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_tool {

namespace opc = tarn::opc;
using tarn::ComPtr;
using tarn::Failed;

namespace {

constexpr const char16_t* kStreamName = u"[Content_Types].xml";

// [owned] Read as the library reads it; null when that fails.
ComPtr<IDomDocument> ReadDocument(opc::Package& package) {
    ComPtr<IDomDocument> document;
    opc::Part* part = package.GetPart(opc::PartUri(kStreamName));
    ComPtr<IStream> stream;
    if (part == nullptr || Failed(part->GetStream(stream.Out()))) return document;
    if (Failed(stream->Seek(0, STREAM_SEEK_SET, nullptr))) return document;
    _XDOMParse(document.Out(), stream.Get(), 0xFFFFFFFF, 0, 0, 0);
    return document;
}

const char16_t* Value(IDomAttributes& attributes, const char16_t* name) {
    IDomAttribute* attribute = attributes.GetNamedItem(name);
    if (attribute == nullptr) return nullptr;
    const char16_t* value = attribute->GetValue();
    return value == nullptr ? u"" : value;
}

// Calls add(key, content type) for each element of this name that has both attributes.
template <class Add>
void ForEachRule(IDomDocument& document, const char16_t* element, const char16_t* key, Add add) {
    IDomNodeList* elements = document.GetElementsByTagName(element);
    for (std::uint32_t i = 0; i < elements->GetLength(); ++i) {
        IDomAttributes* attributes = elements->GetItem(i)->GetAttributes();
        if (attributes == nullptr) continue;
        const char16_t* keyText = Value(*attributes, key);
        const char16_t* contentType = Value(*attributes, u"ContentType");
        if (keyText != nullptr && contentType != nullptr) add(keyText, contentType);
    }
}

// Names count without one leading slash.
std::u16string_view KeyOf(std::u16string_view name) {
    if (!name.empty() && (name.front() == u'/' || name.front() == u'\\')) name.remove_prefix(1);
    return name;
}

// A name without a dot is its own extension.
std::u16string_view ExtensionOf(std::u16string_view name) {
    const std::size_t dot = name.rfind(u'.');
    return dot == std::u16string_view::npos ? name : name.substr(dot + 1);
}

}  // namespace

ContentTypeRules::ContentTypeRules(opc::Package& package, const InputFile& file) {
    const ComPtr<IDomDocument> document = ReadDocument(package);
    if (!document) {
        throw PartError(kReadOrWriteError, file, "[Content_Types].xml", "cannot be read again");
    }
    ForEachRule(*document.Get(), u"Default", u"Extension",
                [this](auto* key, auto* contentType) { Add(false, key, contentType); });
    ForEachRule(*document.Get(), u"Override", u"PartName",
                [this](auto* key, auto* contentType) { Add(true, key, contentType); });
}

void ContentTypeRules::Add(bool isOverride, std::u16string key, std::u16string contentType) {
    Keys& keys = isOverride ? overrides_ : defaults_;
    const std::u16string_view compared = isOverride ? KeyOf(key) : std::u16string_view(key);
    const bool isNew = keys.try_emplace(std::u16string(compared), rules_.size()).second;
    rules_.push_back({isOverride, std::move(key), std::move(contentType), !isNew});
}

ContentTypeRule* ContentTypeRules::Find(std::u16string_view name) {
    const auto override = overrides_.find(KeyOf(name));
    if (override != overrides_.end()) return &rules_[override->second];
    const auto byExtension = defaults_.find(ExtensionOf(KeyOf(name)));
    return byExtension == defaults_.end() ? nullptr : &rules_[byExtension->second];
}

}  // namespace vexpa_tool
