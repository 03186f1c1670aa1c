#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace brackwater {

/// Base of all collections: children, created by the mapper, are added only with addChild.
class MSPEXMLCollectionAdapterBase : public MSPEXMLAdapter {
public:
    static constexpr std::string_view kClassName = "MSPEXMLCollectionAdapter";
    using MSPEXMLAdapter::MSPEXMLAdapter;

    /// Both are prohibited and raise a failure.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    [[nodiscard]] std::string_view className() const noexcept override { return kClassName; }

protected:
    [[noreturn]] static void failUnexpectedChild(const MSPEXMLAdapter* child);
};

/// A list of records, such as "Tasks", to which each child gives its record. The list belongs to a record or, if no
/// record has one, to the collection. The collection does not keep a child whose record is in the list: nothing needs
/// it again.
template <typename Record>
class MSPEXMLCollectionAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLCollectionAdapter<Record>, MSPEXMLCollectionAdapterBase> {
    using Base = MSPEXMLAdapterClass<MSPEXMLCollectionAdapter<Record>, MSPEXMLCollectionAdapterBase>;

public:
    using Collection = std::vector<std::shared_ptr<Record>>;

    /// With its own list.
    MSPEXMLCollectionAdapter(std::string_view name, MSPEMapper* mapper)
        : MSPEXMLCollectionAdapter(name, mapper, std::make_shared<Collection>()) {}
    /// On a given list. For a list inside a record the pointer shares the record's ownership.
    MSPEXMLCollectionAdapter(std::string_view name, MSPEMapper* mapper, std::shared_ptr<Collection> collection)
        : Base(name, mapper), _collection(std::move(collection)) {}

    /// A collection named `name` on a list of the parent's record.
    template <typename ParentRecord, typename ListOwner>
    [[nodiscard]] static std::shared_ptr<MSPEXMLCollectionAdapter>
    onListOf(const MSPEXMLRecordAdapter<ParentRecord>& parent, std::string_view name, Collection ListOwner::*list) {
        const std::shared_ptr<ParentRecord>& record = parent.mppDomObject();
        return std::make_shared<MSPEXMLCollectionAdapter>(name, parent.mapper(),
                                                          std::shared_ptr<Collection>(record, &((*record).*list)));
    }

    /// Takes an adapter with a record of this kind. One without a record adds nothing but stays alive.
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override {
        const auto* withRecord = dynamic_cast<const MSPEXMLRecordAdapter<std::remove_const_t<Record>>*>(child.get());
        if (withRecord && withRecord->mppDomObject())
            _collection->push_back(withRecord->mppDomObject());
        else if (child && !child->hasMppDomObject())
            _retainList.push_back(child);
        else
            this->failUnexpectedChild(child.get());
    }

    [[nodiscard]] Collection& collection() noexcept { return *_collection; }
    [[nodiscard]] const Collection& collection() const noexcept { return *_collection; }

private:
    std::vector<std::shared_ptr<MSPEXMLAdapter>> _retainList;
    std::shared_ptr<Collection> _collection;
};

} // namespace brackwater
