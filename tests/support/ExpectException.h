#pragma once

#include "Platform/Values/Exception.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brackwater::test {

/// Runs `action` and expects it to raise a failure of exactly this name and reason.
template <typename Action>
void expectException(std::string_view name, std::string_view reason, Action action) {
    try {
        action();
        ADD_FAILURE() << "expected " << name << ": " << reason;
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.name(), name);
        EXPECT_EQ(exception.reason(), reason);
    }
}

/// The same for a failed internal check.
template <typename Action>
void expectAssertion(std::string_view message, Action action) {
    expectException(kInternalInconsistencyException, message, action);
}

} // namespace brackwater::test
