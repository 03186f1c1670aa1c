#include "support/MemoryTemplate.h"

#include "support/CompoundFile.h"

#include <algorithm>

namespace brackwater::test {

namespace {

void addStream(CompoundTree& tree, const std::string& path, const Bytes& bytes) {
    const std::size_t slash = path.find('/');
    if (slash == std::string::npos) {
        tree.push_back(stream(path, bytes));
        return;
    }
    const std::string name = path.substr(0, slash);
    auto folder = std::find_if(tree.begin(), tree.end(), [&name](const auto& entry) { return entry.name == name; });
    if (folder == tree.end())
        folder = tree.insert(tree.end(), storage(name, {}));
    addStream(*folder->children, path.substr(slash + 1), bytes);
}

} // namespace

std::shared_ptr<MPPFormatReader> memoryTemplate(const std::map<std::string, Bytes>& streams) {
    CompoundTree tree;
    for (const auto& [path, bytes] : streams)
        addStream(tree, path, bytes);
    return readerOfCompoundFile(tree);
}

std::shared_ptr<MPPFormatReader> memoryStream(const Bytes& bytes) {
    return readerOfCompoundFile({stream("Stream", bytes)})->createReaderForChildAtIndex(0);
}

} // namespace brackwater::test
