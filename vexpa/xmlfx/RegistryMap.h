// vexpa/xmlfx/RegistryMap.h - the hash map that the namespace maps are made of.
#ifndef VEXPA_XMLFX_REGISTRYMAP_H_
#define VEXPA_XMLFX_REGISTRYMAP_H_

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "vexpa/base/Export.h"

namespace tarn::xmlfx {

// Looks up like std::unordered_map<Key, T> with a maximum load factor of 1, and differs
// where the vocabulary needs it:
//
// - The keys of a bucket stand in a balanced tree. Whoever writes a document chooses the
//   namespace URIs in it and can make them collide under the sampled hash, so a look-up
//   takes logarithmic time at worst.
// - A text key is a std::u16string_view of a copy that the map keeps, followed by a NUL.
//   Any text is looked up as it is; finding a name allocates nothing.
// - Entries lie in a few large blocks. They are added or all dropped, never erased alone.
//
// Key is std::u16string_view, hashed by SampledStringHash, or an unsigned integer, which
// is its own hash. Only the instances of XmlMapper.h exist, and only the library makes maps.
//
// Lifetime  References, pointers and iterators stay valid until clear(). Entries iterate
//           in the order in which they were added.
// Errors    An addition that runs out of memory throws and leaves the map as it was.
// Threads   Any number may read while nobody writes. operator[] writes always.
template <class Key, class T>
class VEXPA_API RegistryMap {
    struct Node;
    template <class Value>
    class Iterator;

public:
    // As std::unordered_map has them.
    using key_type = Key;
    using mapped_type = T;
    using value_type = std::pair<const Key, T>;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using iterator = Iterator<value_type>;
    using const_iterator = Iterator<const value_type>;

    // An empty map.
    RegistryMap() noexcept;
    ~RegistryMap();  // destroys all entries

    RegistryMap(const RegistryMap&) = delete;
    RegistryMap& operator=(const RegistryMap&) = delete;

    // All entries, in the order in which they were added.
    iterator begin() noexcept;
    iterator end() noexcept { return iterator(); }
    const_iterator begin() const noexcept;
    const_iterator end() const noexcept { return const_iterator(); }

    // Whether there is no entry.
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    // How many entries there are.
    size_type size() const noexcept;
    // How many buckets there are.
    size_type bucket_count() const noexcept;
    // How many entries there may be for each bucket.
    float max_load_factor() const noexcept { return 1.0F; }

    // The entry of `key`, or end(); nothing is added.
    iterator find(Key key) noexcept;
    const_iterator find(Key key) const noexcept;
    // Whether there is an entry of `key`.
    bool contains(Key key) const noexcept { return find(key) != end(); }
    // 1 if there is an entry of `key`, else 0.
    size_type count(Key key) const noexcept { return contains(key) ? 1 : 0; }

    // The value of `key`, added with an empty value when there was none. The map remembers the last
    // key asked for, so this writes also for a key that is there: threads that only read use find.
    T& operator[](Key key);
    // The entry of `key`, added with an empty value when there was none, and whether it was added.
    std::pair<iterator, bool> try_emplace(Key key);

    // Makes room for `count` entries at once; std::length_error when there can be none.
    void reserve(size_type count);

    // Drops all entries and keeps the bucket array.
    void clear() noexcept;

private:
    // Linked into its bucket's tree, and into the list of all entries. Compiled callers know
    // where the entry and the next node are; the rest is ours, and so is the map itself, but
    // for its size: an entry may hold a map.
    struct Node {
        explicit Node(Key key, std::uint32_t keyHash)
            : entry(std::piecewise_construct, std::forward_as_tuple(key), std::tuple<>()),
              hash(keyHash) {}

        value_type entry;
        Node* next = nullptr;
        Node* left = nullptr;
        Node* right = nullptr;
        std::uint32_t hash;  // the low half: it selects the bucket and orders the tree
        std::uint32_t level = 1;
    };

    template <class Value>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::remove_const_t<Value>;
        using difference_type = std::ptrdiff_t;
        using pointer = Value*;
        using reference = Value&;

        Iterator() noexcept = default;
        explicit Iterator(Node* node) noexcept : node_(node) {}
        // From iterator to const_iterator.
        template <class Other, class = std::enable_if_t<std::is_same_v<const Other, Value>>>
        Iterator(Iterator<Other> other) noexcept : node_(other.node_) {}

        reference operator*() const noexcept { return node_->entry; }
        pointer operator->() const noexcept { return &node_->entry; }
        Iterator& operator++() noexcept {
            node_ = node_->next;
            return *this;
        }
        Iterator operator++(int) noexcept { return std::exchange(*this, Iterator(node_->next)); }
        friend bool operator==(Iterator a, Iterator b) noexcept { return a.node_ == b.node_; }
        friend bool operator!=(Iterator a, Iterator b) noexcept { return a.node_ != b.node_; }

    private:
        template <class>
        friend class Iterator;

        Node* node_ = nullptr;
    };

    std::pair<Node*, bool> FindOrAdd(Key key);
    Node* FindNode(Key key, std::uint32_t hash) const noexcept;
    Node* Add(Key key, std::uint32_t hash);
    void Link(Node* node) noexcept;
    void Grow(size_type count);
    Node* MakeNode(Key key, std::uint32_t hash);
    std::pmr::memory_resource& Memory(size_type expected);

    std::unique_ptr<Node*[]> buckets_;
    size_type bucketCount_ = 0;  // or a power of two
    Node* recent_ = nullptr;     // what operator[] answered last
    Node* first_ = nullptr;
    Node* last_ = nullptr;
    size_type size_ = 0;
    std::unique_ptr<std::pmr::monotonic_buffer_resource> memory_;  // of the nodes and their texts
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_REGISTRYMAP_H_
