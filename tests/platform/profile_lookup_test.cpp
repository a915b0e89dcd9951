// The one-pass read of a file outside a save must find what the document finds.
#include <gtest/gtest.h>

#include <random>

#include "platform/posix/profile_document.h"

namespace lumacfg::platform::posix {
namespace {

TEST(ProfileLookUp, FindsWhatTheDocumentFinds) {
    const std::string pieces[] = {"[A]", " [ a ] ", "[B",   "[B]x]", "k=1", " K = '2' ", "k",
                                  "=v",  "j=\"3\"", ";c=4", "",      "\t",  "[]"};
    const std::string endings[] = {"\r\n", "\n", "\r"};
    const std::string names[] = {"A", "a", "B", "B]x", "", "k", "K", "j", ";c"};
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string bytes;
        for (int line = std::uniform_int_distribution(0, 12)(random); line > 0; --line) {
            bytes += pieces[random() % std::size(pieces)] + endings[random() % std::size(endings)];
        }
        if (random() % 2) bytes += pieces[random() % std::size(pieces)];  // unterminated last line
        const ProfileDocument document(bytes);
        for (const std::string& section : names) {
            for (const std::string& key : names) {
                EXPECT_EQ(LookUpProfileValue(bytes, section, key), document.Get(section, key))
                    << "[" << section << "] " << key << " in:\n"
                    << bytes;
            }
        }
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
