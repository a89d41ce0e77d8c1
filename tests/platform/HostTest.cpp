// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/BinaryFile.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/ReplacementFile.h"
#include "platform/Shell.h"
#include "support/FailingCalls.h"
#include "support/TempFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>

using namespace calyvox;
using namespace std::string_literals;
using HostCalls::Call;

namespace {

int FailureOf(const std::function<void()>& statement) {
    try {
        return statement(), 0;
    } catch (const Failure& failure) {
        return failure.Number();
    }
}

mode_t ModeOf(const std::string& hostPath) {
    struct stat found {};
    EXPECT_EQ(::stat(hostPath.c_str(), &found), 0) << hostPath;
    return found.st_mode & 07777U;
}

/// Whether a second opener gets the lock of a file right now.
bool CanLock(const std::string& hostPath) {
    const int handle = ::open(hostPath.c_str(), O_RDWR);
    const bool locked = ::flock(handle, LOCK_EX | LOCK_NB) == 0;
    ::close(handle);
    return locked;
}

class HostFiles : public testing::Test {
protected:
    ~HostFiles() override { HostCalls::SetInterceptor({}); }

    /// The number of the failure.
    int Replace(const std::string& bytes, const std::string& name = "a.mp3") const {
        return FailureOf([&] {
            ReplacementFile replacement(folder_.Inside(name));
            replacement.Write(bytes);
            replacement.Commit();
        });
    }
    /// Another program renames a file just before this one makes such a call.
    void RenameAt(Call when, const char* from, const char* to) const {
        HostCalls::SetInterceptor([=, this](Call call, std::size_t&) {
            if (call == when) ::rename(folder_.Host(from).c_str(), folder_.Host(to).c_str());
            return 0;
        });
    }
    /// Runs once for each call of the host that the run makes, and that one fails; writes are short. The
    /// first rename may have a failure of its own.
    static void FailEachCall(int firstRename, const std::function<void()>& run) {
        for (const Call kind : {Call::Open, Call::Read, Call::Write, Call::Sync, Call::Rename, Call::Unlink})
            for (int nth = 1, seen = 1; seen >= nth; ++nth) {
                SCOPED_TRACE(testing::Message() << static_cast<int>(kind) << " " << nth);
                int rename = firstRename;
                seen = 0;
                HostCalls::SetInterceptor([&](Call call, std::size_t& length) {
                    length = std::min<std::size_t>(length, 4);
                    const int own = call == Call::Rename ? std::exchange(rename, 0) : 0;
                    return call == kind && ++seen == nth ? ENOSPC : own;
                });
                run();
                HostCalls::SetInterceptor({});
            }
    }

    TempFolder folder_;
    std::string path_ = folder_.Write("a.mp3", "0123456789");
    std::string host_ = folder_.Host("a.mp3");
    BinaryFile file_;
};

TEST_F(HostFiles, BytesBeyondTheEndAreNulsUpToALimit) {
    file_.Open(path_);
    for (const auto& [position, bytes] :
         {std::pair(9, "89\0\0"s), {50'000, "\0"s}, {1, "0123456789" + std::string(19'990, '\0')}}) {
        file_.Seek(position);
        EXPECT_EQ(file_.Read(static_cast<std::int64_t>(bytes.size())), bytes) << position;
    }
    EXPECT_EQ(FailureOf([&] { file_.Read(BinaryFile::kMostBeyondEnd + 1); }), Failure::kOutOfMemory);
    EXPECT_EQ(FailureOf([&] { file_.Seek(0); }), Failure::kInvalidCall);
}

TEST_F(HostFiles, ShortReadsAndWritesOfTheHostLoseNothing) {
    std::string bytes;
    for (int i = 0; static_cast<std::int64_t>(bytes.size()) <= ReplacementFile::kBlock; ++i)
        bytes += std::to_string(i);
    file_.Open(folder_.Write("long", bytes));
    HostCalls::SetInterceptor(
        [](Call, std::size_t& length) { return length = std::min<std::size_t>(length, 4'097), 0; });
    EXPECT_TRUE(file_.Read(9'000) == bytes.substr(0, 9'000));
    ReplacementFile copy(path_);
    copy.CopyFrom(file_, 2, file_.Length() - 1);
    EXPECT_EQ(FailureOf([&] { copy.CopyFrom(file_, 2, file_.Length()); }), Failure::kPathAccess);
    copy.Commit();
    EXPECT_TRUE(folder_.Read("a.mp3") == bytes.substr(1));
}

TEST_F(HostFiles, AWriteIsAllOrNothing) {
    for (const std::int64_t position : {1, 4, 8, 11, 15}) {
        file_.Open(path_);
        file_.Seek(position);
        int writes = 0; // the first moves 3 bytes, the second finds the disk full
        HostCalls::SetInterceptor([&](Call call, std::size_t& length) {
            if (call != Call::Write || ++writes > 2) return 0;
            length = std::min<std::size_t>(length, 3);
            return writes == 2 ? ENOSPC : 0;
        });
        EXPECT_EQ(FailureOf([&] { file_.Write("abcdef"); }), Failure::kDiskNotReady);
        EXPECT_EQ(folder_.Read("a.mp3"), "0123456789") << position;
        EXPECT_EQ(file_.Position(), position);
    }
}

TEST_F(HostFiles, OnlyASharedOpenCreatesAndOnlyPlainFilesOpen) {
    ASSERT_EQ(::mkfifo(folder_.Host("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::truncate(host_.c_str(), BinaryFile::kMostLength + 1), 0);
    for (const auto& [name, number] : {std::pair("pipe", 75), {"", 75}, {"a.mp3", 6}, {"new", 53}}) {
        const auto path = folder_.Inside(name);
        EXPECT_EQ(FailureOf([&] { file_.OpenLocked(path); }), number) << path;
        EXPECT_EQ(FailureOf([&] { file_.Open(path); }), number == 53 ? 0 : number) << path;
    }
}

TEST_F(HostFiles, ALockedOpenIsBarredByOtherOpenersAndHoldsTheFileThatBearsTheName) {
    int other = ::open(host_.c_str(), O_RDWR);
    const bool leases = ::fcntl(other, F_SETLEASE, F_WRLCK) == 0 && ::fcntl(other, F_SETLEASE, F_UNLCK) == 0;
    EXPECT_FALSE(leases && FailureOf([&] { file_.OpenLocked(path_); }) != Failure::kPermissionDenied);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(FailureOf([&] { file_.OpenLocked(path_); }), Failure::kPermissionDenied);
    EXPECT_EQ(FailureOf([&] { file_.Open(path_); }), 0) << "the shared open is not barred";
    HostCalls::Close(other);
    folder_.Write("new", "abcdefghij");
    RenameAt(Call::Lock, "new", "a.mp3");
    file_.OpenLocked(path_);
    EXPECT_FALSE(CanLock(host_));
    file_.Write("01");
    EXPECT_EQ(folder_.Listing() + folder_.Read("a.mp3"), "a.mp3 01cdefghij");
}

TEST_F(HostFiles, AKeepHoldsTheLockAcrossCloseMoveAndReplacement) {
    {
        const BinaryFile::Keep keep(file_);
        file_.OpenLocked(path_);
        file_.Close();
        EXPECT_TRUE(file_.Handle() == -1 && !CanLock(host_));
        FileSystem::Rename(path_, folder_.Inside("b"));
        file_.MovedTo(folder_.Inside("b"));
        file_.Open(folder_.Inside("b"));
        ReplacementFile replacement(folder_.Inside("b"));
        replacement.Write("new");
        replacement.CommitInto(file_);
        EXPECT_EQ(file_.Read(3), "new");
        file_.Close();
        EXPECT_FALSE(CanLock(folder_.Host("b")));
    }
    EXPECT_TRUE(CanLock(folder_.Host("b")));
}

TEST_F(HostFiles, AfterAnyFailingCallAFileIsOldOrNewWithItsModeAndAttributes) {
    std::string now = "0123456789";
    ASSERT_EQ(::chmod(host_.c_str(), 0640), 0);
    const bool attributes = ::setxattr(host_.c_str(), "user.mood", "calm", 4, 0) == 0;
    FailEachCall(0, [&] {
        if (Replace(now + "more") == 0) now += "more";
        EXPECT_EQ(folder_.Listing() + folder_.Read("a.mp3"), "a.mp3 " + now);
        EXPECT_EQ(ModeOf(host_), 0640U);
        EXPECT_EQ(::getxattr(host_.c_str(), "user.mood", nullptr, 0), attributes ? 4 : -1);
    });
}

TEST_F(HostFiles, AReplacedSymbolicLinkStaysALink) {
    const TempFolder elsewhere;
    ASSERT_EQ(::symlink(elsewhere.Host("there").c_str(), folder_.Host("b").c_str()), 0);
    for (const std::string bytes : {"created", "replaced"}) {
        EXPECT_TRUE(Replace(bytes, "b") == 0 && std::filesystem::is_symlink(folder_.Host("b")));
        EXPECT_EQ(elsewhere.Listing() + elsewhere.Read("there"), "there " + bytes);
    }
}

TEST_F(HostFiles, ALeftoverIsOverwrittenUnlessItIsNoPlainFileOrInUse) {
    const std::string leftover = folder_.Host("a.mp3.tmp");
    WriteHostFile(leftover, "much longer than the new contents");
    EXPECT_EQ(Replace("new"), 0);
    ASSERT_EQ(::symlink(folder_.Write("b", "precious").c_str(), leftover.c_str()), 0);
    EXPECT_EQ(Replace("newer"), Failure::kPathAccess);
    ASSERT_EQ(::unlink(leftover.c_str()), 0);
    {
        const ReplacementFile unfinished(path_);
        EXPECT_EQ(ModeOf(leftover) & 077, 0U);
        EXPECT_EQ(Replace("newer"), Failure::kPermissionDenied);
    }
    EXPECT_EQ(folder_.Listing() + folder_.Read("a.mp3") + folder_.Read("b"), "a.mp3 b newprecious");
}

TEST_F(HostFiles, ATemporaryThatAnotherProgramTookIsNotCommitted) {
    folder_.Write("foreign", "half of ano");
    RenameAt(Call::Sync, "foreign", "a.mp3.tmp");
    EXPECT_EQ(Replace("new"), Failure::kPathAccess);
    EXPECT_EQ(folder_.Read("a.mp3") + folder_.Read("a.mp3.tmp"), "0123456789half of ano");
}

TEST_F(HostFiles, NewFilesAndTheLongestNamesAreWritten) {
    for (const std::string& name : {"b"s, std::string(251, 'x'), std::string(255, 'y')}) {
        EXPECT_TRUE(Replace(name, name) == 0 && folder_.Read(name) == name);
        EXPECT_EQ(ModeOf(folder_.Host(name)), ModeOf(host_));
    }
}

TEST_F(HostFiles, NothingIsOverwrittenEvenWhereTheHostCannotRefuse) {
    const std::string other = folder_.Write("b", "other");
    for (const int hostError : {0, EINVAL, ENOSYS}) {
        const FailingCalls failing(Call::Rename, 1, hostError, 99);
        for (const auto way : {FileSystem::Rename, FileSystem::Move, FileSystem::Copy})
            EXPECT_EQ(FailureOf([&] { way(path_, other); }), Failure::kFileExists) << hostError;
        FileSystem::Rename(path_, folder_.Inside("c"));
        FileSystem::Rename(folder_.Inside("c"), path_);
    }
    EXPECT_EQ(folder_.Listing() + folder_.Read("a.mp3") + folder_.Read("b"), "a.mp3 b 0123456789other");
}

TEST_F(HostFiles, AFileMovedOntoItselfIsDoneAlreadyButAHardLinkIsAnotherFile) {
    ASSERT_EQ(::symlink(".", folder_.Host("here").c_str()), 0);
    ASSERT_EQ(::link(host_.c_str(), folder_.Host("A.mp3").c_str()), 0);
    for (const std::string& same : {path_, folder_.Inside("here/a.mp3"), folder_.Inside("./a.mp3")})
        EXPECT_EQ(FailureOf([&] { FileSystem::Move(path_, same); }), 0) << same;
    EXPECT_EQ(FailureOf([&] { FileSystem::Rename(path_, folder_.Inside("A.mp3")); }), Failure::kFileExists);
    EXPECT_EQ(folder_.Listing(), "A.mp3 a.mp3 here ");
}

TEST_F(HostFiles, AMoveAcrossFileSystemsKeepsModeAndTimeOrTheFileWhereItWas) {
    const auto time =
        std::filesystem::last_write_time(host_) - std::chrono::nanoseconds(1'000'000'000'000'001);
    std::filesystem::last_write_time(host_, time);
    ASSERT_EQ(::chmod(host_.c_str(), 0640), 0);
    FailEachCall(EXDEV, [&] {
        const bool moved = FailureOf([&] { FileSystem::Move(path_, folder_.Inside("b")); }) == 0;
        const std::string name = moved ? "b" : "a.mp3";
        EXPECT_EQ(folder_.Listing() + folder_.Read(name), name + " 0123456789");
        EXPECT_EQ(ModeOf(folder_.Host(name)), 0640U);
        EXPECT_EQ(std::filesystem::last_write_time(folder_.Host(name)), time);
        EXPECT_EQ(::rename(folder_.Host(name).c_str(), host_.c_str()), 0);
    });
}

TEST(Shell, ACommandLineIsPartedByBlanksOutsideQuotes) {
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"  \"/my player\" -q ", {"/my player", "-q"}},
        {"a \"\" --b=\"c d\"e", {"a", "", "--b=c de"}},
        {"a\tb 'c d' \\ \"left open ", {"a\tb", "'c", "d'", "\\", "left open "}}};
    for (const auto& [line, arguments] : rows)
        EXPECT_EQ(Shell::SplitCommandLine(line), arguments) << line;
}

TEST(Shell, AProgramGetsItsArgumentsUntouchedAndNoIgnoredSignals) {
    const TempFolder folder;
    BinaryFile().OpenLocked(folder.Write("a.mp3", "abc")); // ignores SIGIO
    const std::string odd = "a  \"b'c$HOME\\*\xFF|";
    const std::string script = "printf %s \"$1\"; sed -n 's/^SigIgn:[[:space:]]*//p' /proc/$$/status; exit 3";
    EXPECT_TRUE(Shell::StartAndWait({"sh", "-c", "exec > \"$0\"; " + script, folder.Host("out"), odd}));
    const std::string out = folder.Read("out");
    ASSERT_TRUE(out.starts_with(odd)) << out;
    EXPECT_EQ(std::stoull(out.substr(odd.size()), nullptr, 16) & (1ULL << (SIGIO - 1)), 0U);
}

TEST(Shell, AStartSaysWhetherItWorkedAndLeavesNoZombie) {
    for (const std::vector<std::string>& row : {std::vector<std::string>{}, {""}, {"/no/such/program"}})
        EXPECT_FALSE(Shell::Start(row) || Shell::StartAndWait(row));
    EXPECT_TRUE(Shell::Start({"true"}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

} // namespace
