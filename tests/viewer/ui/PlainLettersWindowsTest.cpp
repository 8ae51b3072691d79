#include <gtest/gtest.h>

#include "SystemWindow.h"

namespace {

TEST(PlainLetters, LoseTheirAccentsAndStandForWhatTheFontLacks) {
    EXPECT_EQ(qelview::toPlainLetters("caf\xC3\xA9 \x07~"), "cafe ?~");
    EXPECT_EQ(qelview::toPlainLetters("\xE6\x97\xA5 Lom\xC3\xA9"), "? Lome");
    EXPECT_EQ(qelview::toPlainLetters(""), "");
}

}  // namespace
