// vexpa/xmlfx/RegistryMapImpl.h - what RegistryMap.h declares; for the file that instantiates it.
#ifndef VEXPA_XMLFX_REGISTRYMAPIMPL_H_
#define VEXPA_XMLFX_REGISTRYMAPIMPL_H_

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "vexpa/xmlfx/BalancedTree.h"
#include "vexpa/xmlfx/RegistryMap.h"
#include "vexpa/xmlfx/SampledStringHash.h"

namespace tarn::xmlfx {

// What a map must know of its key type.
template <class Key>
struct RegistryKey;

template <>
struct RegistryKey<std::u16string_view> {
    static constexpr std::size_t kUsualTextBytes = 24;  // of a name and its NUL

    static std::uint32_t Hash(std::u16string_view key) noexcept {
        return static_cast<std::uint32_t>(SampledStringHash()(key));
    }

    // Some total order, by length first; a caller's units are read as bytes.
    static int Compare(std::u16string_view a, std::u16string_view b) noexcept {
        if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
        return a.empty() ? 0 : std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t));
    }

    static std::size_t TextBytes(std::u16string_view key) noexcept {
        return (key.size() + 1) * sizeof(char16_t);
    }
    static std::u16string_view CopyTo(void* memory, std::u16string_view key) noexcept {
        auto* copy = static_cast<char16_t*>(memory);
        if (!key.empty()) std::memcpy(copy, key.data(), key.size() * sizeof(char16_t));
        copy[key.size()] = u'\0';
        return {copy, key.size()};
    }
};

template <>
struct RegistryKey<std::uint32_t> {
    static constexpr std::size_t kUsualTextBytes = 0;

    static std::uint32_t Hash(std::uint32_t key) noexcept { return key; }
    static int Compare(std::uint32_t a, std::uint32_t b) noexcept { return a < b ? -1 : a > b; }
    static std::size_t TextBytes(std::uint32_t) noexcept { return 0; }
    static std::uint32_t CopyTo(void*, std::uint32_t key) noexcept { return key; }
};

template <class Key, class T>
RegistryMap<Key, T>::RegistryMap() noexcept = default;

template <class Key, class T>
RegistryMap<Key, T>::~RegistryMap() {
    clear();
}

template <class Key, class T>
auto RegistryMap<Key, T>::begin() noexcept -> iterator {
    return iterator(first_);
}

template <class Key, class T>
auto RegistryMap<Key, T>::begin() const noexcept -> const_iterator {
    return const_iterator(first_);
}

template <class Key, class T>
auto RegistryMap<Key, T>::size() const noexcept -> size_type {
    return size_;
}

template <class Key, class T>
auto RegistryMap<Key, T>::bucket_count() const noexcept -> size_type {
    return bucketCount_;
}

template <class Key, class T>
auto RegistryMap<Key, T>::find(Key key) noexcept -> iterator {
    return iterator(FindNode(key, RegistryKey<Key>::Hash(key)));
}

template <class Key, class T>
auto RegistryMap<Key, T>::find(Key key) const noexcept -> const_iterator {
    return const_iterator(FindNode(key, RegistryKey<Key>::Hash(key)));
}

template <class Key, class T>
T& RegistryMap<Key, T>::operator[](Key key) {
    // Most attributes of a document are of one namespace, so the key is mostly that of before.
    if (recent_ == nullptr || RegistryKey<Key>::Compare(key, recent_->entry.first) != 0) {
        recent_ = FindOrAdd(key).first;
    }
    return recent_->entry.second;
}

template <class Key, class T>
auto RegistryMap<Key, T>::try_emplace(Key key) -> std::pair<iterator, bool> {
    const auto [node, added] = FindOrAdd(key);
    return {iterator(node), added};
}

template <class Key, class T>
auto RegistryMap<Key, T>::FindOrAdd(Key key) -> std::pair<Node*, bool> {
    const std::uint32_t hash = RegistryKey<Key>::Hash(key);
    if (Node* node = FindNode(key, hash)) return {node, false};
    return {Add(key, hash), true};
}

template <class Key, class T>
auto RegistryMap<Key, T>::FindNode(Key key, std::uint32_t hash) const noexcept -> Node* {
    if (bucketCount_ == 0) return nullptr;
    Node* node = buckets_[hash & (bucketCount_ - 1)];
    while (node != nullptr) {
        int order = hash < node->hash ? -1 : 1;
        if (hash == node->hash) order = RegistryKey<Key>::Compare(key, node->entry.first);
        if (order == 0) break;
        node = order < 0 ? node->left : node->right;
    }
    return node;
}

template <class Key, class T>
auto RegistryMap<Key, T>::Add(Key key, std::uint32_t hash) -> Node* {
    if (size_ == bucketCount_) Grow(size_ + 1);
    Node* node = MakeNode(key, hash);
    Link(node);
    (last_ == nullptr ? first_ : last_->next) = node;
    last_ = node;
    ++size_;
    return node;
}

template <class Key, class T>
void RegistryMap<Key, T>::Link(Node* node) noexcept {
    const auto less = [](const Node& a, const Node& b) {
        if (a.hash != b.hash) return a.hash < b.hash;
        return RegistryKey<Key>::Compare(a.entry.first, b.entry.first) < 0;
    };
    Node*& root = buckets_[node->hash & (bucketCount_ - 1)];
    root = InsertIntoTree(root, node, less);
}

// The node, with the key's text right behind it.
template <class Key, class T>
auto RegistryMap<Key, T>::MakeNode(Key key, std::uint32_t hash) -> Node* {
    constexpr size_type kFirstBlock = 4;
    void* memory =
        Memory(kFirstBlock).allocate(sizeof(Node) + RegistryKey<Key>::TextBytes(key), alignof(Node));
    return ::new (memory) Node(RegistryKey<Key>::CopyTo(static_cast<Node*>(memory) + 1, key), hash);
}

// Blocks grow on their own; `expected` entries only size the first one. A map without
// entries has none: there is one for each namespace that a document makes up.
//
// The default resource is the process's to choose, and may end before the maps do.
template <class Key, class T>
std::pmr::memory_resource& RegistryMap<Key, T>::Memory(size_type expected) {
    if (memory_ == nullptr) {
        constexpr size_type kEntryBytes = sizeof(Node) + RegistryKey<Key>::kUsualTextBytes;
        memory_ = std::make_unique<std::pmr::monotonic_buffer_resource>(
            expected * kEntryBytes, std::pmr::new_delete_resource());
    }
    return *memory_;
}

template <class Key, class T>
void RegistryMap<Key, T>::Grow(size_type count) {
    constexpr size_type kFewest = 8;
    const size_type buckets = std::bit_ceil(std::max(count, kFewest));
    buckets_ = std::make_unique<Node*[]>(buckets);
    bucketCount_ = buckets;
    for (Node* node = first_; node != nullptr; node = node->next) {
        node->left = node->right = nullptr;
        node->level = 1;
        Link(node);
    }
}

template <class Key, class T>
void RegistryMap<Key, T>::reserve(size_type count) {
    constexpr size_type kMostBuckets = std::numeric_limits<size_type>::max() / sizeof(void*);
    if (count > kMostBuckets / 2) throw std::length_error("RegistryMap::reserve");
    if (count > bucketCount_) Grow(count);
    if (count > 0) Memory(count);
}

template <class Key, class T>
void RegistryMap<Key, T>::clear() noexcept {
    for (Node* node = std::exchange(first_, nullptr); node != nullptr;) {
        std::exchange(node, node->next)->~Node();
    }
    recent_ = last_ = nullptr;
    size_ = 0;
    std::fill_n(buckets_.get(), bucketCount_, nullptr);
    memory_.reset();
}

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_REGISTRYMAPIMPL_H_
