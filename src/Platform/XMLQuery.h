#pragma once

#include <string_view>

namespace brackwater {

/// One of the path questions that the system asks of a source document. It holds views only: what it was made from must
/// outlive it. Element names match by local name, whatever namespace the document declares.
///
/// Constant queries are made from their text ("task/prerequisite-task"); queries with a value from the makers below, so
/// that no value can change a query's meaning. Both are cheap: nothing is allocated.
class XMLQuery {
public:
    enum class Form {
        Child,                   ///< "task"
        ChildPath,               ///< "project/title"
        AnyDepth,                ///< "//project/currency-format": the last step below a parent of the first step's name
        ChildWithAttribute,      ///< "flattened-schedule-day[@date]"
        ChildWithValue,          ///< "task[@id='t1']"
        AnyDepthWithParentValue, ///< "//assignment[@idref='r1' and ../@id='t1']"
        Unsupported              ///< any other text; finds nothing and puts the error "NOT PORTED XQUERY" in the slot
    };

    /// Parses one of the six forms.
    explicit XMLQuery(std::string_view text) noexcept;

    /// NAME[@ATTRIBUTE='VALUE']
    [[nodiscard]] static XMLQuery childWithValue(std::string_view name, std::string_view attribute,
                                                 std::string_view value) noexcept;
    /// //NAME[@ATTRIBUTE='VALUE' and ../@PARENT_ATTRIBUTE='PARENT_VALUE']
    [[nodiscard]] static XMLQuery anyDepthWithParentValue(std::string_view name, std::string_view attribute,
                                                          std::string_view value, std::string_view parentAttribute,
                                                          std::string_view parentValue) noexcept;

    [[nodiscard]] Form form() const noexcept { return _form; }
    [[nodiscard]] std::string_view text() const noexcept { return _text; }   ///< what it was parsed from, or empty
    [[nodiscard]] std::string_view first() const noexcept { return _first; } ///< first step of a path
    [[nodiscard]] std::string_view name() const noexcept { return _name; }   ///< name of the elements found
    [[nodiscard]] std::string_view attribute() const noexcept { return _attribute; }
    [[nodiscard]] std::string_view value() const noexcept { return _value; }
    [[nodiscard]] std::string_view parentAttribute() const noexcept { return _parentAttribute; }
    [[nodiscard]] std::string_view parentValue() const noexcept { return _parentValue; }

private:
    XMLQuery() = default;

    Form _form = Form::Unsupported;
    std::string_view _text, _first, _name, _attribute, _value, _parentAttribute, _parentValue;
};

} // namespace brackwater
