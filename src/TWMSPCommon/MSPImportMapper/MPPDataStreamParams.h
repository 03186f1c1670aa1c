#pragma once

#include <cstdint>

namespace brackwater {

/// Describes the streams of one family of objects in the target file.
struct MPPDataStreamParams {
    struct FixedStream {
        std::int32_t metaStreamMagicNumber = 0;
        std::int32_t metaStreamItemSize = 0;
        std::int32_t dataStreamMinItemSize = 0;
        std::int32_t dataStreamMaxItemSize = 0;

        friend bool operator==(const FixedStream&, const FixedStream&) = default;
    };
    struct VarStream {
        std::int32_t metaStreamMagicNumber = 0;
        std::int32_t unused = 0; ///< neither compared nor printed
    };

    bool hasPropsStream = false;
    bool hasFixedStream = false; ///< there is a pair of fixed meta and fixed data
    FixedStream fixed;
    bool hasFixed2Stream = false; ///< there is a second such pair
    FixedStream fixed2;
    std::int64_t firstFixedIndex = 0;
    bool hasVarStream = false;
    VarStream var;
};

} // namespace brackwater
