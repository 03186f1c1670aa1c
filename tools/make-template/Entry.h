#pragma once

#include "ByteBuilder.h"

#include <string>

namespace brackwater::layout {

/// One entry of a compound file: a storage with its children, or a stream with its bytes.
struct Entry {
    std::string name;
    bool isStorage = false;
    Bytes bytes;
    std::vector<Entry> children;

    static Entry stream(std::string name, Bytes bytes) { return {std::move(name), false, std::move(bytes), {}}; }
    static Entry storage(std::string name, std::vector<Entry> children) {
        return {std::move(name), true, {}, std::move(children)};
    }
};

} // namespace brackwater::layout
