#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

class MSPEMapper;

/// The text of an element; nothing if the mapper has none. Made from any kind of text, optional or not, and valid only
/// during the call.
using ElementText = std::optional<std::string_view>;

/// An element of the target document. It has the interface for building an XML element but makes no XML: whatever is
/// added goes straight into fields of a model record. A child with a text sets a field of this element's record; a
/// child element has its own record, which joins a list of this element's record.
///
/// Every concrete adapter passes unknown names on to this class, which drops them silently.
class MSPEXMLAdapter {
public:
    MSPEXMLAdapter(std::string_view name, MSPEMapper* mapper);
    virtual ~MSPEXMLAdapter();
    MSPEXMLAdapter(const MSPEXMLAdapter&) = delete;
    MSPEXMLAdapter& operator=(const MSPEXMLAdapter&) = delete;

    /// Takes a child that was created separately. Here: drops it.
    virtual void addChild(const std::shared_ptr<MSPEXMLAdapter>& child);
    /// Creates a child element, takes it and returns it. Here: null.
    virtual std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name);
    /// Sets a field from a child's text. Always null: such a child has no object.
    virtual std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue);
    /// The three forms with an index append, whatever the index.
    void insertChild(const std::shared_ptr<MSPEXMLAdapter>& child, int index);
    std::shared_ptr<MSPEXMLAdapter> insertChildElementWithName(std::string_view name, int index);
    std::shared_ptr<MSPEXMLAdapter> insertChildElementWithName(std::string_view name, ElementText stringValue,
                                                               int index);
    /// Comments have no place in a record.
    void addComment(ElementText text);

    [[nodiscard]] const std::string& name() const noexcept { return _name; }
    /// Not owned; lives as long as the export.
    [[nodiscard]] MSPEMapper* mapper() const noexcept { return _mapper; }
    /// Whether the adapter has a record; the record itself is the concrete class's `mppDomObject()`.
    [[nodiscard]] virtual bool hasMppDomObject() const noexcept { return false; }
    /// The class name that failures report.
    [[nodiscard]] virtual std::string_view className() const noexcept { return "MSPEXMLAdapter"; }
    /// The same for a child that may be missing.
    [[nodiscard]] static std::string_view classNameOf(const MSPEXMLAdapter* adapter) noexcept;

protected:
    // An adapter cannot exist without its mapper: the factory calls that lack one raise a failure.
    [[noreturn]] static void failElementWithName(std::string_view className, std::string_view name);
    [[noreturn]] static void failInitWithName(std::string_view className, std::string_view name);
    [[noreturn]] static void failInitWithName(std::string_view className, std::string_view name,
                                              ElementText stringValue);

private:
    std::string _name;
    MSPEMapper* _mapper;
};

/// What every concrete adapter class has besides its vocabulary: its factories and its name. `Concrete` defines
/// `kClassName`.
template <typename Concrete, typename Base>
class MSPEXMLAdapterClass : public Base {
public:
    using Base::Base;

    [[nodiscard]] static std::shared_ptr<Concrete> elementWithName(std::string_view name, MSPEMapper* mapper) {
        return std::make_shared<Concrete>(name, mapper);
    }
    // Prohibited: each raises a failure.
    [[noreturn]] static std::shared_ptr<Concrete> elementWithName(std::string_view name) {
        MSPEXMLAdapter::failElementWithName(Concrete::kClassName, name);
    }
    [[noreturn]] static std::shared_ptr<Concrete> initWithName(std::string_view name) {
        MSPEXMLAdapter::failInitWithName(Concrete::kClassName, name);
    }
    [[noreturn]] static std::shared_ptr<Concrete> initWithName(std::string_view name, ElementText stringValue) {
        MSPEXMLAdapter::failInitWithName(Concrete::kClassName, name, stringValue);
    }

    [[nodiscard]] std::string_view className() const noexcept override { return Concrete::kClassName; }
};

/// An adapter with a record. The record outlives the adapter in the list that takes it.
template <typename Record>
class MSPEXMLRecordAdapter : public MSPEXMLAdapter {
public:
    MSPEXMLRecordAdapter(std::string_view name, MSPEMapper* mapper)
        : MSPEXMLRecordAdapter(name, mapper, std::make_shared<Record>()) {}

    [[nodiscard]] const std::shared_ptr<Record>& mppDomObject() const noexcept { return _mppDomObject; }
    [[nodiscard]] bool hasMppDomObject() const noexcept override { return _mppDomObject != nullptr; }

protected:
    /// With a given record, or none yet.
    MSPEXMLRecordAdapter(std::string_view name, MSPEMapper* mapper, std::shared_ptr<Record> record)
        : MSPEXMLAdapter(name, mapper), _mppDomObject(std::move(record)) {}
    void setMppDomObject(std::shared_ptr<Record> record) noexcept { _mppDomObject = std::move(record); }

private:
    std::shared_ptr<Record> _mppDomObject;
};

} // namespace brackwater
