#include "MPPXMLDOMFilter/Corrections/CustomFields.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Text/TextEncoding.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace brackwater {

namespace {

constexpr std::size_t kMostFields = 30;
constexpr std::size_t kLongestAlias = 50; // UTF-16 units

/// The text fields of one kind of record, in the order in which their keys first appear.
class FieldTable {
public:
    /// Sets the values of one record by position. If a key has several values, the last one counts; an empty one is
    /// ignored.
    void setValues(const MPPSourceFields& fields, std::vector<std::string>& values) {
        values.clear();
        for (const auto& [key, value] : fields) {
            if (value.empty())
                continue;
            const std::size_t position = positionOf(key);
            if (position >= kMostFields)
                continue;
            values.resize(std::max(values.size(), position + 1));
            values[position] = value;
        }
    }

    [[nodiscard]] std::vector<std::string> takeAliases() { return std::move(_aliases); }

private:
    std::size_t positionOf(const std::string& key) {
        const auto [found, isNew] = _positions.try_emplace(key, _positions.size());
        if (isNew && found->second < kMostFields)
            _aliases.push_back(aliasOf(key));
        return found->second;
    }

    // Aliases are unique: if truncation makes two equal, a number distinguishes them.
    [[nodiscard]] std::string aliasOf(const std::string& key) const {
        std::string alias = key.substr(0, sizeOfPrefix(key, kLongestAlias));
        for (std::size_t number = 2; std::ranges::find(_aliases, alias) != _aliases.end(); ++number) {
            const std::string mark = fmt::format(" {}", number);
            alias = key.substr(0, sizeOfPrefix(key, kLongestAlias - mark.size())) + mark;
        }
        return alias;
    }

    std::unordered_map<std::string, std::size_t> _positions;
    std::vector<std::string> _aliases;
};

template <typename Source>
const MPPSourceFields& fieldsOf(const std::unique_ptr<Source>& source) {
    static const MPPSourceFields kNone;
    return source ? source->fields : kNone;
}

} // namespace

void numberCustomFields(MPPProject& project) {
    FieldTable ofTasks;
    ofTasks.setValues(fieldsOf(project.source), project.customFieldValues);
    for (const auto& task : project.tasks)
        ofTasks.setValues(fieldsOf(task->source), task->customFieldValues);
    FieldTable ofResources;
    for (const auto& resource : project.resources)
        ofResources.setValues(fieldsOf(resource->source), resource->customFieldsText);
    project.customTaskFieldNames = ofTasks.takeAliases();
    project.customResourceFieldNames = ofResources.takeAliases();
    project.customFieldNameRoom = 0;
}

} // namespace brackwater
