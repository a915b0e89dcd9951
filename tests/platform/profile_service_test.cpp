// The profile service on real files: reads, writes, batches and permissions.
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/services.h"
#include "support/directory_watch.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

namespace fs = std::filesystem;
using support::DirectoryWatch;
using support::TempDir;
using support::WriteBytes;

class ProfileServiceTest : public ::testing::Test {
  protected:
    void SetUp() override {
        service_ = MakeProfileService();
        Failures().Take();
    }

    std::string PathOf(const std::string& name) const { return (dir_ / name).string(); }
    void Put(const std::string& name, const std::string& bytes) const {
        WriteBytes(dir_ / name, bytes);
    }
    std::string Bytes(const std::string& name) const {
        FileRead read = ReadRegularFile(PathOf(name));
        return read.status == FileRead::Status::Read ? read.bytes : "<missing>";
    }
    std::vector<std::string> Names(const std::string& sub = "") const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(dir_ / sub)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string Get(const std::string& name, const std::string& section, const std::string& key) {
        return service_->GetString(PathOf(name), section, key, "", 512).text;
    }

    TempDir temp_{"lumacfg-profile"};
    fs::path dir_ = temp_.Path();
    std::unique_ptr<ProfileService> service_;
};

// A read-only file refuses every change, even the super-user's, and the refusal is reported
// with the file's path; a deletion of what is not there changes nothing, creates no file and
// succeeds, read-only or not.
TEST_F(ProfileServiceTest, ReadOnlyFileRefusesChangesButNotNonChanges) {
    const std::string original = "[S]\nK=old\n";
    Put("ro.ini", original);
    ASSERT_EQ(::chmod(PathOf("ro.ini").c_str(), 0444), 0);
    const FileFailure refused{FileOperation::Write, PathOf("ro.ini"), "read-only file"};
    for (bool batch : {false, true}) {
        SCOPED_TRACE(batch ? "in a batch" : "key by key");
        if (batch) service_->BeginBatch();
        EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", "K", "new"));
        EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", "K", std::nullopt));
        EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", std::nullopt, std::nullopt));
        EXPECT_EQ(Get("ro.ini", "S", "K"), "old");  // as a key-by-key read would see it
        EXPECT_EQ(Failures().Take(), std::vector<FileFailure>{refused});
        for (const char* name : {"ro.ini", "none.ini"}) {
            EXPECT_TRUE(service_->WriteString(PathOf(name), "S", "NONE", std::nullopt));
            EXPECT_TRUE(service_->WriteString(PathOf(name), "NONE", std::nullopt, std::nullopt));
        }
        EXPECT_TRUE(service_->WriteString(PathOf("ro.ini"), "S", "K", "old"));  // same value
        if (batch) {
            EXPECT_FALSE(service_->EndBatch());  // a change was refused
        }
        EXPECT_TRUE(Failures().Take().empty());
        EXPECT_EQ(Bytes("ro.ini"), original);
        EXPECT_EQ(Names(), std::vector<std::string>{"ro.ini"});
    }
}

// In a batch each file is looked up and read once; each changed file is written once at the
// outermost end, in the order it was first changed, a refused one not stopping the rest.
TEST_F(ProfileServiceTest, BatchReadsOnceAndWritesEachChangedFileOnceInOrder) {
    Put("lumagen.ist", "[WSX]\r\nA=1\r\n");
    Put("runtype.ini", "[R]\r\nX=1\r\n");
    Put("zeta.ini", "");
    Put("alpha.ini", "");
    DirectoryWatch watch(dir_);
    {
        service_->BeginBatch();
        service_->BeginBatch();  // nested: only the outermost end writes
        service_->WriteString(PathOf("zeta.ini"), "Z", "K", "1");
        service_->WriteString(PathOf("alpha.ini"), "A", "K", "1");
        ::chmod(PathOf("alpha.ini").c_str(), 0444);  // refused when the batch ends
        service_->WriteString(PathOf("runtype.ini"), "R", "X", "2");
        service_->WriteString(PathOf("runtype.ini"), "R", "X", "1");  // back as it was read
        for (int i = 0; i < 50; ++i) {
            service_->WriteString(PathOf("LUMAGEN.IST"), "WSX", "K" + std::to_string(i), "v");
            EXPECT_EQ(Get("lumagen.ist", "wsx", "k" + std::to_string(i)), "v");
            service_->WriteString(PathOf("runtype.ini"), "R", "X", "1");  // no change
            EXPECT_EQ(Get("runtype.ini", "R", "X"), "1");
            watch.Events();  // taken as they come: the kernel merges repeats left unread
        }
        EXPECT_TRUE(service_->EndBatch());  // writes nothing yet
        watch.Mark("inner end");
        EXPECT_FALSE(service_->EndBatch());
    }
    EXPECT_EQ(watch.Events(),
              (std::vector<std::string>{"open zeta.ini", "open alpha.ini", "open runtype.ini",
                                        "open .",  // "LUMAGEN.IST" looked up
                                        "open lumagen.ist", "inner end",
                                        // each write looks for temporary files left behind,
                                        // then flushes the directory (the kernel merges the
                                        // two opens between the writes)
                                        "open .", "write zeta.ini", "open .", "write lumagen.ist",
                                        "open ."}));
    EXPECT_EQ(
        Failures().Take(),
        (std::vector<FileFailure>{{FileOperation::Write, PathOf("alpha.ini"), "read-only file"}}));
    EXPECT_EQ(Get("lumagen.ist", "WSX", "K0"), "v");
    EXPECT_EQ(Bytes("zeta.ini"), "[Z]\r\nK=1\r\n");
    EXPECT_EQ(Bytes("alpha.ini"), "");
}

// A copy in a batch is one more change of its target: it takes the source as the batch has
// changed it, later edits apply on top, and the target is written once. Outside a batch the
// copy is written at once. A missing source is the caller's business and not reported.
TEST_F(ProfileServiceTest, CopyIsOneMoreChangeOfTheTarget) {
    Put("qc.ini", "[E]\r\nA=1\r\n");
    Put("runtype.ini", "[E]\r\nOld=1\r\n");
    DirectoryWatch watch(dir_);
    {
        service_->BeginBatch();
        service_->WriteString(PathOf("qc.ini"), "E", "B", "2");
        EXPECT_TRUE(service_->CopyFile(PathOf("qc.ini"), PathOf("RUNTYPE.INI")));
        EXPECT_EQ(Get("runtype.ini", "E", "Old"), "");
        service_->WriteString(PathOf("runtype.ini"), "E", "C", "3");
        EXPECT_FALSE(service_->CopyFile(PathOf("missing.ini"), PathOf("runtype.ini")));
        EXPECT_TRUE(service_->EndBatch());
    }
    const auto& events = watch.Events();
    EXPECT_EQ(std::count(events.begin(), events.end(), "write runtype.ini"), 1);
    EXPECT_EQ(Bytes("qc.ini"), "[E]\r\nA=1\r\nB=2\r\n");
    EXPECT_EQ(Bytes("runtype.ini"), "[E]\r\nA=1\r\nB=2\r\nC=3\r\n");

    EXPECT_TRUE(service_->CopyFile(PathOf("runtype.ini"), PathOf("copy.ini")));
    EXPECT_EQ(Bytes("copy.ini"), Bytes("runtype.ini"));
    EXPECT_FALSE(service_->CopyFile(PathOf("missing.ini"), PathOf("copy.ini")));
    EXPECT_TRUE(Failures().Take().empty());
}

}  // namespace
}  // namespace lumacfg::platform::posix
