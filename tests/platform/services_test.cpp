#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

#include "nexo/base/Rect.h"
#include "nexo/platform/Clipboard.h"
#include "nexo/platform/Clock.h"
#include "nexo/platform/DebugOutput.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/Modules.h"
#include "nexo/platform/Process.h"
#include "nexo/platform/UserInterface.h"
#include "nexo/platform/UserLanguage.h"
#include "tests/platform/support.h"

namespace {

using namespace nexo::platform;

int InThisProgram = 0;

TEST(Clipboard, KeepsFormatsApart) {
    const auto clipboard = GetClipboard();
    const unsigned int node = clipboard->RegisterFormat(L"MOXTEL_TREEITEM_NODE");
    const unsigned int leaf = clipboard->RegisterFormat(L"MOXTEL_TREEITEM_LEAF");
    EXPECT_NE(node, leaf);
    EXPECT_EQ(clipboard->RegisterFormat(L"moxtel_treeitem_node"), node);
    EXPECT_EQ(clipboard->RegisterFormat(L""), 0u);
    EXPECT_FALSE(clipboard->SetData(node, "x")) << "not open";
    {
        ClipboardSession session;
        ASSERT_TRUE(session && session->Empty());
        EXPECT_TRUE(session.SetText(node, L"a\xD83D\xDE00"));
        std::string bytes;
        EXPECT_TRUE(session->GetData(node, bytes));
        EXPECT_EQ(bytes, std::string("a\0\x3D\xD8\x00\xDE\0\0", 8));
        std::thread([] { EXPECT_FALSE(ClipboardSession()) << "open elsewhere"; }).join();
    }
    EXPECT_TRUE(clipboard->IsAvailable(node));
    EXPECT_FALSE(clipboard->IsAvailable(leaf));
    std::thread([&] {
        ClipboardSession session;
        CString text(L"old");
        EXPECT_TRUE(session.GetText(node, text));
        EXPECT_EQ(text, CString(L"a\xD83D\xDE00"));
        EXPECT_FALSE(session.GetText(leaf, text));
        EXPECT_TRUE(session->Empty());
    }).join();
    EXPECT_FALSE(clipboard->IsAvailable(node));
}

TEST(Clipboard, IsReplaced) {
    class Closed final : public Clipboard {
        unsigned int RegisterFormat(std::wstring_view) override { return 1; }
        bool Open() override { return false; }
        void Close() override { ADD_FAILURE() << "never opened"; }
        bool Empty() override { return false; }
        bool SetData(unsigned int, std::string_view) override { return false; }
        bool GetData(unsigned int, std::string&) override { return false; }
        bool IsAvailable(unsigned int) override { return true; }
    };
    SetClipboard(std::make_shared<Closed>());
    EXPECT_FALSE(ClipboardSession());
    EXPECT_TRUE(GetClipboard()->IsAvailable(5));
    SetClipboard(nullptr);
    EXPECT_TRUE(ClipboardSession());
}

TEST(UserLanguage, OfLocaleNames) {
    const struct {
        const char* locale;
        const wchar_t* want;
    } rows[] = {{"de_AT.UTF-8@euro", L"DE"},
                {"en", L"EN"},
                {"C", L"EN"},
                {"C.UTF-8", L"EN"},
                {"POSIX", L"EN"},
                {"ja_JP.UTF-8", L"JP"},
                {"zh_CN", L"CH"},
                {"zh_HK", L"ZH"},
                {"zh_tw", L"CH"},
                {"zh_sg", L"ZH"},
                {"nb_NO", L"NO"},
                {"nn", L"NO"},
                {"ga_IE", L"IR"},
                {"mt", L"ML"},
                {"id", L"IN"},
                {"cs_CZ", L"CS"},
                {"tr_TR", L"TR"},
                {"IT", L"IT"},
                {"gsw", L"GS"},
                {"", L""},
                {"german", L""},
                {"d", L""},
                {"/usr/share", L""},
                {"de/x", L""}};
    for (const auto& row : rows) EXPECT_EQ(LanguageOfLocale(row.locale), CString(row.want)) << row.locale;
}

TEST(UserLanguage, OfTheEnvironment) {
    const char* const names[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    const struct {
        const char* name;
        const char* values[4];
        const wchar_t* want;
    } rows[] = {
        {"nothing set", {nullptr, nullptr, nullptr, nullptr}, L"EN"},
        {"LANG alone", {nullptr, nullptr, nullptr, "de_DE.UTF-8"}, L"DE"},
        {"messages over LANG", {nullptr, "", "fr_FR", "de_DE"}, L"FR"},
        {"all over messages", {nullptr, "it_IT", "fr_FR", "de_DE"}, L"IT"},
        {"a list", {":german:es:de", "it_IT", nullptr, nullptr}, L"ES"},
        {"the C locale counts", {nullptr, "C", nullptr, "de_DE"}, L"EN"},
    };
    for (const auto& row : rows) {
        for (int i = 0; i < 4; ++i) row.values[i] ? setenv(names[i], row.values[i], 1) : unsetenv(names[i]);
        EXPECT_EQ(UserLanguage(), CString(row.want)) << row.name;
    }
    for (const char* name : names) unsetenv(name);
}

class ProcessTest : public test::InOwnFolder {};

TEST_F(ProcessTest, ArgumentsReachTheProgramAsTheyAre) {
    Process process;
    const std::string odd = "a \"b\" $HOME; rm *\n'";
    ASSERT_TRUE(
        process.Start({"sh", "-c", "printf %s \"$2\" > \"$1\"; exit 7", "sh", Native("out").string(), odd}));
    EXPECT_EQ(process.Wait(), ProcessState::kExited);
    EXPECT_EQ(process.ExitCode(), 7);
    EXPECT_EQ(Get("out"), odd);
    EXPECT_EQ(process.Wait(), ProcessState::kFailed);
    EXPECT_FALSE(process.Start({"/no/such/program"}));
    EXPECT_EQ(LastError(), kErrorFileNotFound);
    EXPECT_FALSE(process.Start({}));
}

TEST_F(ProcessTest, TimeOutAndStreams) {
    Process process;
    ASSERT_TRUE(process.Start({"sleep", "30"}));
    const std::uint32_t start = TickCount();
    EXPECT_EQ(process.Wait(50), ProcessState::kTimedOut);
    EXPECT_GE(TickCount() - start, 50u);
    const int inherited = open("/dev/null", O_RDONLY);  // without close-on-exec
    ASSERT_TRUE(process.Start({"sh", "-c", "ls /proc/self/fd > \"$1\"; cat", "sh", Native("out").string()}));
    EXPECT_EQ(process.Wait(10000), ProcessState::kExited);
    EXPECT_EQ(Get("out"), "0\n1\n2\n3\n") << "3 is the listing itself";
    close(inherited);
    ASSERT_TRUE(process.Start({"sh", "-c", "kill -9 $$"}));
    EXPECT_EQ(process.Wait(), ProcessState::kExited);
    EXPECT_EQ(process.ExitCode(), 128 + 9);
}

// What a child process with the given stdin and no terminal writes to stderr; its exit code.
int WithStderr(const std::string& file, const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        dup2(open(file.c_str(), O_CREAT | O_WRONLY, 0600), 2);
        dup2(open("/dev/null", O_RDONLY), 0);
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
}

class ConsoleTest : public test::InOwnFolder {};

TEST_F(ConsoleTest, RefusesWhereNobodyCanBeAsked) {
    const struct {
        MessageButtons buttons;
        MessageAnswer want;
    } rows[] = {{MessageButtons::kOk, MessageAnswer::kOk},
                {MessageButtons::kOkCancel, MessageAnswer::kCancel},
                {MessageButtons::kAbortRetryIgnore, MessageAnswer::kAbort},
                {MessageButtons::kYesNoCancel, MessageAnswer::kNo},
                {MessageButtons::kYesNo, MessageAnswer::kNo},
                {MessageButtons::kRetryCancel, MessageAnswer::kCancel}};
    EXPECT_EQ(WithStderr(Native("out").string(),
                         [&] {
                             for (const auto& row : rows)
                                 if (GetUserInterface()->ShowMessage(L"\u00C4", L"t", MessageIcon::kError,
                                                                     row.buttons) != row.want)
                                     return 1;
                             ShowError(L"x");
                             WriteDebug(L"nobody watches");
                             return 0;
                         }),
              0);
    EXPECT_EQ(Get("out").substr(0, 12), "t: \xC3\x84\nt: \xC3\x84\n");
    EXPECT_NE(Get("out").find("nexo_platform"), std::string::npos) << "the program's name is the title";
    EXPECT_EQ(Get("out").find("nobody"), std::string::npos);
}

TEST_F(ConsoleTest, AsksOnATerminal) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(grantpt(master) + unlockpt(master), 0);
    const int side = open(ptsname(master), O_RDWR | O_NOCTTY);
    const std::string answers = "what\n\n2\nja\n";
    const pid_t child = fork();
    if (child == 0) {
        dup2(side, 0);
        dup2(side, 2);
        const auto ask = [] {
            return GetUserInterface()->ShowMessage(L"?", L"", MessageIcon::kQuestion,
                                                   MessageButtons::kYesNoCancel);
        };
        const bool good = ask() == MessageAnswer::kNo && ask() == MessageAnswer::kYes;
        WriteDebug(L"seen");
        _exit(good ? 0 : 1);
    }
    close(side);
    ASSERT_EQ(write(master, answers.data(), answers.size()), static_cast<ssize_t>(answers.size()));
    std::string shown;
    char block[512];
    for (ssize_t size;
         shown.find("seen") == std::string::npos && (size = read(master, block, sizeof block)) > 0;)
        shown.append(block, static_cast<std::size_t>(size));
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_NE(shown.find("1 = Ja, 2 = Nein, 3 = Abbrechen: "), std::string::npos);
    close(master);
}

TEST(DebugOutput, GoesToTheSink) {
    std::wstring seen;
    SetDebugSink([&](std::wstring_view text) { seen += text; });
    WriteDebug(L"a\u00E4");
    const DebugSink former = SetDebugSink(nullptr);
    WriteDebug(L"to nobody");
    former(L"!");
    EXPECT_EQ(seen, L"a\u00E4!");
}

TEST(Modules, FilesAndTexts) {
    const HINSTANCE library = LibraryModule();
    EXPECT_EQ(ModuleFromAddress(&InThisProgram), ProgramModule());
    EXPECT_NE(library, ProgramModule());
    EXPECT_GE(ModuleFile(library).Find(L"libNexoV1_140x32.so"), 0);
    EXPECT_GE(ModuleFile(nullptr).Find(L"\\nexo_platform_tests"), 0);
    EXPECT_EQ(ModuleFile(library).Left(3), CString(L"C:\\"));
    void* handle = dlopen("libm.so.6", RTLD_NOW);
    EXPECT_GE(ModuleFile(ModuleFromHandle(handle)).Find(L"libm"), 0);
    dlclose(handle);
    EXPECT_EQ(ModuleFile(reinterpret_cast<HINSTANCE>(0x1234)), CString());
    EXPECT_EQ(ModuleFromHandle(nullptr), nullptr);

    RegisterStringTable(library, {{7, L"sieben"}, {8, L"acht"}});
    RegisterStringTable(library, {{8, L"achtung"}});
    CString text(L"old");
    EXPECT_FALSE(LoadStringResource(library, 9, text) || LoadStringResource(nullptr, 7, text));
    EXPECT_TRUE(text == L"old" && LoadStringResource(library, 8, text, 4));
    EXPECT_EQ(text, CString(L"acht"));
    EXPECT_EQ(ResourceModule(), ProgramModule());
    SetResourceModule(library);
    EXPECT_EQ(ResourceModule(), library);
    SetResourceModule(nullptr);
    UnregisterStringTable(library);
    EXPECT_FALSE(LoadStringResource(library, 7, text));
}

TEST(Clock, RunsForward) {
    const std::int64_t counter = PerformanceCounter();
    const std::uint32_t ticks = TickCount();
    SleepMilliseconds(20);
    EXPECT_GE(PerformanceCounter() - counter, PerformanceFrequency() / 50);
    EXPECT_GE(TickCount() - ticks, 19u);
    EXPECT_GT(SystemTimeTicks(), 132539328000000000) << "2021";
}

TEST(Rect, IntersectionAndWrap) {
    CRect common;
    EXPECT_TRUE(common.IntersectRect({0, 0, 10, 10}, {5, 5, 20, 20}));
    EXPECT_EQ(common, CRect(5, 5, 10, 10));
    EXPECT_FALSE(common.IntersectRect({0, 0, 10, 10}, {10, 0, 20, 10}));
    EXPECT_EQ(common, CRect());
    EXPECT_EQ(CRect(-2147483647, 0, 2147483647, 0).Width(), -2);
}

}  // namespace
