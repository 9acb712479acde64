#include <gtest/gtest.h>
#include <ole2.h>

namespace {

/// Every test is a client on a thread with OLE.
class Ole : public testing::Environment {
    void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
    void TearDown() override { OleUninitialize(); }
};
const auto* const kOle = testing::AddGlobalTestEnvironment(new Ole);

}  // namespace
