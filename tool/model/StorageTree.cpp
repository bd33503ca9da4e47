#include "tool/model/StorageTree.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "tool/run/Interrupt.h"
#include "vexpa/base/Result.h"

namespace vexpa_tool {

using tarn::ComPtr;
using tarn::Failed;

namespace {

std::vector<StorageElement> ReadElements(IStorage& storage) {
    std::vector<StorageElement> elements;
    ComPtr<IEnumSTATSTG> list;
    if (Failed(storage.EnumElements(0, nullptr, 0, list.Out()))) return elements;
    for (STATSTG stat{}; list->Next(1, &stat, nullptr) == S_OK; stat = {}) {
        const bool isStorage = stat.type == STGTY_STORAGE;
        std::u16string name = stat.pwcsName == nullptr ? std::u16string() : stat.pwcsName;
        _XCoTaskMemFree(stat.pwcsName);
        elements.push_back({0, 0, isStorage, true, std::move(name), stat.cbSize, stat.clsid});
    }
    return elements;
}

ComPtr<IStorage> OpenStorage(IStorage& parent, const std::u16string& name) {
    ComPtr<IStorage> storage;
    parent.OpenStorage(name.c_str(), nullptr, 0, nullptr, 0, storage.Out());
    return storage;
}

}  // namespace

// Goes down with a stack of its own, as the file decides how deep it is.
class StorageTree::Reader {
public:
    explicit Reader(std::vector<StorageElement>& elements) : elements_(elements) {}

    void Read(IStorage& root) {
        STATSTG stat{};
        root.Stat(&stat, STATFLAG_NONAME);
        elements_.push_back({0, 0, true, true, {}, 0, stat.clsid});
        Enter(nullptr, root);
        while (!open_.empty()) Step();
    }

private:
    struct Open {
        ComPtr<IStorage> held;  // null for the root, which others hold
        IStorage* storage;
        std::size_t index;  // in the tree
        std::vector<StorageElement> children;
        std::size_t next;
    };

    void Enter(ComPtr<IStorage> held, IStorage& storage) {
        open_.push_back({std::move(held), &storage, elements_.size() - 1, ReadElements(storage), 0});
    }
    void Enter(std::nullptr_t, IStorage& storage) { Enter(ComPtr<IStorage>(), storage); }

    void Step() {
        StopIfInterrupted();
        Open& open = open_.back();
        if (open.next == open.children.size()) {
            open_.pop_back();
            return;
        }
        StorageElement element = std::move(open.children[open.next++]);
        element.level = open_.size();
        element.storage = open.index;
        elements_.push_back(element);
        if (!element.isStorage) return;
        ComPtr<IStorage> storage = OpenStorage(*open.storage, element.name);
        elements_.back().isReadable = static_cast<bool>(storage);
        if (!storage) return;
        IStorage& opened = *storage.Get();
        Enter(std::move(storage), opened);
    }

    std::vector<StorageElement>& elements_;
    std::vector<Open> open_;
};

StorageTree::StorageTree(ComPtr<IStorage> root) : root_(std::move(root)) {
    Reader(elements_).Read(*root_.Get());
}

bool StorageTree::HasTail(std::size_t element, std::u16string_view tail, bool& isWhole) const {
    for (std::size_t at = element; at != 0; at = elements_[at].storage) {
        const std::u16string& name = elements_[at].name;
        if (!tail.ends_with(name)) return false;
        tail.remove_suffix(name.size());
        if (tail.empty()) {
            isWhole = elements_[at].storage == 0;
            return true;
        }
        if (tail.back() != u'/') return false;
        tail.remove_suffix(1);
    }
    return false;
}

std::vector<std::size_t> StorageTree::FindStreams(std::u16string_view path) const {
    std::vector<std::size_t> tails;
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        bool isWhole = false;
        if (elements_[i].isStorage || !HasTail(i, path, isWhole)) continue;
        if (isWhole) return {i};
        tails.push_back(i);
    }
    return tails;
}

std::u16string StorageTree::PathOf(std::size_t element) const {
    std::vector<std::u16string_view> names;
    for (std::size_t at = element; at != 0; at = elements_[at].storage) {
        names.push_back(elements_[at].name);
    }
    std::u16string path;
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        if (name != names.rbegin()) path += u'/';
        path += *name;
    }
    return path;
}

ComPtr<IStream> StorageTree::OpenStream(std::size_t element) const {
    std::vector<std::size_t> storages;
    for (std::size_t at = elements_[element].storage; at != 0; at = elements_[at].storage) {
        storages.push_back(at);
    }
    ComPtr<IStorage> held;
    IStorage* storage = root_.Get();
    for (auto at = storages.rbegin(); at != storages.rend() && storage != nullptr; ++at) {
        held = OpenStorage(*storage, elements_[*at].name);
        storage = held.Get();
    }
    ComPtr<IStream> stream;
    if (storage != nullptr) {
        storage->OpenStream(elements_[element].name.c_str(), nullptr, 0, 0, stream.Out());
    }
    return stream;
}

std::string ClsidText(const GUID& clsid) {
    char text[40];
    const std::uint8_t* d = clsid.Data4;
    std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", clsid.Data1,
                  clsid.Data2, clsid.Data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7]);
    return text;
}

}  // namespace vexpa_tool
