// The first-start window's rules: the sentence names what is missing, OK records a folder that
// can serve as the data system's or says why not and stays open, Cancel ends without a station.
#include "ui/start/first_start_dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_station.h"

namespace lumacfg::ui {
namespace {

class FirstStartDialogTest : public support::TempStation {
  protected:
    const platform::FileFailure missing_{platform::FileOperation::Read,
                                         "/etc/plasmasuite/registry.reg",
                                         "No such file or directory"};
};

TEST_F(FirstStartDialogTest, TheSentenceNamesWhatIsMissing) {
    FirstStartDialog dialog(missing_);
    EXPECT_EQ(dialog.State().at("Lbl_Reason").text,
              "No station of the data system was found (/etc/plasmasuite/registry.reg: No such "
              "file or directory); choose the folder the data system is installed in, the one "
              "that holds LUMAEXE or where LUMAEXE may be made.");
    EXPECT_EQ(dialog.State().at("Fm_FirstStart").text, "ICP-MS Configuration");
}

TEST_F(FirstStartDialogTest, OkRecordsAUsableFolderOrSaysWhyNot) {
    const struct {
        const char* name;
        std::string typed;
        DialogEnd end;
        std::string message;  // the start of the one message shown; "" for none
    } cases[] = {
        {"nothing typed", "  ", DialogEnd::Open,
         "Choose the folder the data system is installed in."},
        {"missing folder", Root() + "/absent", DialogEnd::Open,
         "cannot read " + Root() + "/absent: No such file or directory"},
        {"a file, not a folder", StationProfile().string(), DialogEnd::Open,
         "cannot read " + StationProfile().string() + ": Not a directory"},
        {"the data system's folder", " " + Root() + " ", DialogEnd::Accepted, ""},
    };
    support::WriteBytes(StationProfile(), "[General]\r\n");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        messages_.clear();
        const std::string storeBefore = RegistryFileText();
        FirstStartDialog dialog(missing_);
        dialog.SetText("Ed_Folder", c.typed);
        dialog.Click("Cd_OK");
        EXPECT_EQ(dialog.End(), c.end);
        ASSERT_EQ(messages_.size(), c.message.empty() ? 0u : 1u);
        if (!c.message.empty()) {
            EXPECT_EQ(messages_[0].text.rfind(c.message, 0), 0u) << messages_[0].text;
            EXPECT_EQ(messages_[0].title, "Error");
            EXPECT_EQ(RegistryFileText(), storeBefore);
        }
    }
    EXPECT_NE(RegistryFileText().find("\"Path\"=\"" + Root() + "\"\r\n"), std::string::npos);
}

TEST_F(FirstStartDialogTest, CancelEndsWithoutWriting) {
    const std::string storeBefore = RegistryFileText();
    FirstStartDialog dialog(missing_);
    dialog.SetText("Ed_Folder", Root());
    dialog.Click("Cd_Cancel");
    EXPECT_EQ(dialog.End(), DialogEnd::Cancelled);
    EXPECT_EQ(RegistryFileText(), storeBefore);
    EXPECT_TRUE(messages_.empty());
}

}  // namespace
}  // namespace lumacfg::ui
