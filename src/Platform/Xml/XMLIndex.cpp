#include "Platform/Xml/XMLIndex.h"

#include "Platform/Values/PerThread.h"
#include "Platform/Values/PlaceTable.h"
#include "Platform/Xml/XMLTree.h"

#include <bit>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

using namespace xmltree;

// A hash table from a value (or a value and a parent's value) to the elements that carry it. An entry is an element;
// the first element of a value heads the chain of all that share it and is the one that hangs in a bucket.
class XMLIndex::Table {
public:
    Table(const XMLQuery& query, const Element* document, std::unique_ptr<const Table> older)
        : _older(std::move(older)), _form(query.form()), _name(query.name()), _attribute(query.attribute()),
          _parentAttribute(query.parentAttribute()) {
        if (Element* root = elementFrom(document->first()))
            collect(root);
        _table.reset(std::bit_ceil(_entries.size() + 1));
        for (std::uint32_t index = 0; index < _entries.size(); ++index)
            insert(index);
    }

    /// The one built before.
    [[nodiscard]] const Table* older() const noexcept { return _older.get(); }

    [[nodiscard]] bool answers(const XMLQuery& query) const {
        return query.form() == _form && query.name() == _name && query.attribute() == _attribute &&
               query.parentAttribute() == _parentAttribute;
    }

    [[nodiscard]] LastFound lastFound(const XMLQuery& query) const {
        const std::uint32_t head = headOf(Key{query.value(), query.parentValue()});
        if (head == kNone)
            return {};
        return {_entries[head].count, _entries[_entries[head].lastOfValue].element};
    }

    [[nodiscard]] std::vector<Element*> allFound(const XMLQuery& query) const {
        std::vector<Element*> found;
        for (std::uint32_t index = headOf(Key{query.value(), query.parentValue()}); index != kNone;
             index = _entries[index].nextOfValue)
            found.push_back(_entries[index].element);
        return found;
    }

private:
    static constexpr std::uint32_t kNone = PlaceTable::kNone;

    struct Key {
        std::string_view value;
        std::string_view parentValue;

        friend bool operator==(const Key&, const Key&) = default;

        [[nodiscard]] std::uint32_t hash() const {
            const std::size_t own = std::hash<std::string_view>()(value);
            return PlaceTable::folded(own * 31 + std::hash<std::string_view>()(parentValue));
        }
    };

    struct Entry {
        Element* element;
        Key key; // at hand, without a detour through the element's attributes
        std::uint32_t hash;
        std::uint32_t nextInBucket = kNone;
        std::uint32_t nextOfValue = kNone;
        std::uint32_t lastOfValue = kNone; // of a head only, as is the count
        std::uint32_t count = 1;
    };

    void collect(Element* root) {
        if (_form == XMLQuery::Form::ChildWithValue) {
            for (Node* node = root->first(); node != nullptr; node = node->next)
                collectElement(node);
            return;
        }
        for (Node* node = root; node != nullptr; node = nextBelow(node, root))
            collectElement(node);
    }

    void collectElement(Node* node) {
        if (node->kind != Kind::Element || asElement(node)->nameView() != _name)
            return;
        if (const auto key = keyOf(asElement(node)))
            _entries.push_back({asElement(node), *key, key->hash()});
    }

    // Nothing where an attribute is missing.
    std::optional<Key> keyOf(const Element* element) const {
        const Attribute* own = attributeOf(element, _attribute);
        if (own == nullptr)
            return std::nullopt;
        if (_form == XMLQuery::Form::ChildWithValue)
            return Key{own->view(), {}};
        const Attribute* parents = attributeOf(element->parent, _parentAttribute); // the document has none
        if (parents == nullptr)
            return std::nullopt;
        return Key{own->view(), parents->view()};
    }

    // Readers mostly ask in document order, so the entry behind the last answer is tried first: it lies at hand, while
    // buckets and their entries are spread over the memory.
    [[nodiscard]] std::uint32_t headOf(const Key& key) const {
        std::uint32_t& expected = _expected.own();
        if (expected < _entries.size() && isHead(_entries[expected]) && _entries[expected].key == key)
            return expected++;
        const std::uint32_t head = headOf(key, key.hash());
        if (head != kNone)
            expected = head + 1;
        return head;
    }

    static bool isHead(const Entry& entry) { return entry.lastOfValue != kNone; }

    [[nodiscard]] std::uint32_t headOf(const Key& key, std::uint32_t hash) const {
        return _table.find(_entries, hash, [&](const Entry& entry) { return entry.key == key; });
    }

    void insert(std::uint32_t index) {
        Entry& entry = _entries[index];
        const std::uint32_t head = headOf(entry.key, entry.hash);
        if (head == kNone) {
            _table.add(_entries, index);
            entry.lastOfValue = index;
            return;
        }
        _entries[_entries[head].lastOfValue].nextOfValue = index;
        _entries[head].lastOfValue = index;
        ++_entries[head].count;
    }

    std::unique_ptr<const Table> _older;
    XMLQuery::Form _form;
    std::string _name;
    std::string _attribute;
    std::string _parentAttribute;
    std::vector<Entry> _entries;
    PlaceTable _table;
    mutable PerThread<std::uint32_t> _expected;
};

XMLIndex::XMLIndex(Element* document) : _document(document) {}

XMLIndex::~XMLIndex() = default;

XMLIndex::LastFound XMLIndex::lastFound(const XMLQuery& query) { return tableFor(query).lastFound(query); }

std::vector<Element*> XMLIndex::allFound(const XMLQuery& query) { return tableFor(query).allFound(query); }

void XMLIndex::clear() {
    _newest = nullptr;
    _tables.reset();
}

const XMLIndex::Table* XMLIndex::existingTableFor(const XMLQuery& query) const noexcept {
    for (const Table* table = _newest.load(std::memory_order_acquire); table != nullptr; table = table->older())
        if (table->answers(query))
            return table;
    return nullptr;
}

const XMLIndex::Table& XMLIndex::tableFor(const XMLQuery& query) {
    if (const Table* table = existingTableFor(query))
        return *table;
    const std::lock_guard lock(_building);
    if (const Table* table = existingTableFor(query)) // built while this thread waited
        return *table;
    _tables = std::make_unique<const Table>(query, _document, std::move(_tables));
    _newest.store(_tables.get(), std::memory_order_release);
    return *_tables;
}

} // namespace brackwater
