#pragma once

#include "Platform/Xml/XMLQuery.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace brackwater {

namespace xmltree {
struct Element;
}

/// Elements of a document by the values of their attributes, for the two forms of query that name a value:
/// NAME[@A='V'] relative to the root, and //NAME[@A='V' and ../@B='W']. For each combination of names that is asked for
/// one table is built at the first question, in one pass over the tree; later questions cost the same whatever the
/// document's size. The tables hold no copies of names or values. The thread that exports and its helper may ask at the
/// same time.
class XMLIndex {
public:
    /// `document` is the node above the root.
    explicit XMLIndex(xmltree::Element* document);
    ~XMLIndex();
    XMLIndex(const XMLIndex&) = delete;
    XMLIndex& operator=(const XMLIndex&) = delete;

    /// How many elements a query finds, and the last of them in document order (null where it finds none).
    struct LastFound {
        std::size_t count = 0;
        xmltree::Element* last = nullptr;
    };
    [[nodiscard]] LastFound lastFound(const XMLQuery& query);
    /// All elements that a query finds, in document order.
    [[nodiscard]] std::vector<xmltree::Element*> allFound(const XMLQuery& query);

    /// Forgets all tables, since the tree has changed.
    void clear();

private:
    class Table;
    [[nodiscard]] const Table* existingTableFor(const XMLQuery& query) const noexcept;
    const Table& tableFor(const XMLQuery& query);

    xmltree::Element* _document;
    std::mutex _building;
    std::unique_ptr<const Table> _tables; ///< the newest, which owns the others
    std::atomic<const Table*> _newest = nullptr;
};

} // namespace brackwater
