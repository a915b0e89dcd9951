// lumacfg-cli set with the Miscellaneous dialog's fields: put in through the dialog's model and
// its OK, stored as the dialog stores them, refused where the dialog greys the control.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "support/cli_runner.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

class CliSetMiscTest : public support::TempStation {
  protected:
    support::CliResult Run(const std::vector<std::string>& args) {
        return support::RunCli(args, root_);
    }
    std::string Shown(const std::string& name) { return support::ShownValue(name, root_); }
};

TEST_F(CliSetMiscTest, OptionsAreStoredAsTheDialogsOkStoresThem) {
    const support::CliResult set =
        Run({"set", "ALS_TYPE=1", "OPT_SC=0", "OPT_ORGANIC=1", "OPT_SHUTDOWN=1", "EnableDTCal=1",
             "OPT_AUTOREC=1", "OPT_IMTPUMP=1", "OPT_STOP_PP=1", "OPT_CHG_CG=1", "OPT_CHG_FLW=3",
             "OPT_CHG_TIME=12.5"});
    ASSERT_EQ(set.exit, 0) << set.err;
    // The flow is cleaned as the box cleans it when it is left: 3 is held at 2.
    const std::tuple<std::string, std::string> fields[] = {
        {"OPT_SC", "0"},      {"OPT_ORGANIC", "1"},   {"OPT_SHUTDOWN", "1"}, {"EnableDTCal", "1"},
        {"OPT_AUTOREC", "1"}, {"OPT_IMTPUMP", "1"},   {"OPT_STOP_PP", "1"},  {"OPT_CHG_CG", "1"},
        {"OPT_CHG_FLW", "2"}, {"OPT_CHG_TIME", "12"},
    };
    for (const auto& [name, value] : fields) EXPECT_EQ(Shown(name), value) << name;
}

TEST_F(CliSetMiscTest, AGreyedOptionIsRefusedAndNothingIsWritten) {
    const std::tuple<std::vector<std::string>, std::string> cases[] = {
        {{"set", "OPT_STOP_PP=1"},
         "OPT_STOP_PP=1: \"Stop Peri Pump Rotation\" is greyed while no autosampler is chosen"},
        {{"set", "ALS_TYPE=1", "OPT_CHG_FLW=1"},
         "OPT_CHG_FLW=1: the \"Flow Rate\" box is greyed while \"Change Carrier Gas Flow "
         "Rate\" is not checked"},
        {{"set", "OPT_PMP2=1"},
         "OPT_PMP2=1: \"Sample Pump\" is greyed because the instrument has no sample pump "
         "option"},
        {{"set", "ExternalPump=1"},
         "ExternalPump=1: \"OPAL External Pump\" is greyed unless the sample introduction is "
         "\"OPAL\" with the application \"Discrete Sampling\""},
    };
    for (const auto& [args, said] : cases) {
        const support::CliResult refused = Run(args);
        EXPECT_EQ(refused.exit, 1) << said;
        EXPECT_NE(refused.err.find("lumacfg-cli: cannot set " + said + "\n"), std::string::npos)
            << refused.err;
        EXPECT_FALSE(support::ReadBytes(StationProfile())) << said;
    }
    // A value the greyed control already shows is no change.
    EXPECT_EQ(Run({"set", "OPT_STOP_PP=0", "OPT_CHG_TIME=12.0"}).exit, 0);
}

TEST_F(CliSetMiscTest, ThePumpOptionFollowsTheDataSystemsPump) {
    ASSERT_EQ(Run({"show"}).exit, 0);
    ASSERT_EQ(Run({"profile", "set", StationProfile().string(), "WSX,1", "_PPUMP", "1"}).exit, 0);
    const support::CliResult set = Run({"set", "OPT_PMP2=1"});
    ASSERT_EQ(set.exit, 0) << set.err;
    EXPECT_EQ(Shown("OPT_PMP2"), "1");
}

}  // namespace
}  // namespace lumacfg
