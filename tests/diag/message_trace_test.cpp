#include "nexo/diag/MessageTrace.h"

#include <gtest/gtest.h>

#include "nexo/base/Rect.h"
#include "nexo/diag/ErrorText.h"
#include "nexo/diag/MessageTables.h"
#include "nexo/platform/Clock.h"
#include "support/DebugText.h"
#include "support/MessageBoxes.h"

namespace {

/// The trace of one message without separator, number and line end.
CString Traced(unsigned int message, unsigned int wParam = 0, long lParam = 0, long extra = 0) {
    DebugText debug;
    TraceMessage(L"p ", message, wParam, lParam, extra);
    CString line = debug.Take();
    EXPECT_EQ(line.Right(1), L"\n");
    line.TrimRight(L'\n');
    return line.Mid(line.Find(L": p ") + 4);
}

TEST(MessageTrace, DecodesParametersByTheirKind) {
    struct Row {
        const char* name;
        unsigned int message, wParam;
        long lParam, extra;
        const wchar_t* want;
    };
    const CRect rect(10, -20, 110, 30);
    const nexo::WindowPosition position{nullptr, nullptr, 1, 2, 300, 400, 0};
    const auto address = [](const void* object) { return reinterpret_cast<long>(object); };
    const Row rows[] = {
        {"no parameters", 0x0002, 7, 7, 0, L"WM_DESTROY"},
        {"plain numbers", 0x0111, 0x10005, -1, 0, L"WM_COMMAND: 0x10005, 0xffffffff"},
        {"plain name before the end of a range", 0x0100, 0x01, 0x1E0001, 0,
         L"WM_KEYDOWN: VK_LBUTTON, 0x1e0001"},
        {"letter key", 0x0101, 'Q', 1, 0, L"WM_KEYUP: 'Q', 0x1"},
        {"key without a name", 0x0101, 0xFF, 1, 0, L"WM_KEYUP: 0xff, 0x1"},
        {"character", 0x0102, 0xE4, 1, 0, L"WM_CHAR: '\u00E4', 0x1"},
        {"flags and point", 0x0200, 0x05, 20 << 16 | 10, 0,
         L"WM_MOUSEMOVE: MK_LBUTTON | MK_SHIFT | (10, 20)"},
        {"no flags", 0x0200, 0, 20 << 16 | 10, 0, L"WM_MOUSEMOVE: (10, 20)"},
        {"flags with an unknown bit", 0x0201, 0x81, 0, 0, L"WM_LBUTTONDOWN: MK_LBUTTON | 0x80 | (0, 0)"},
        {"flags and a number", 0x020A, 0x780008, 0, 0, L"WM_MOUSEWHEEL: MK_CONTROL | 0x78, (0, 0)"},
        {"truth and reason", 0x0018, 1, 4, 0, L"WM_SHOWWINDOW: True, SW_OTHERUNZOOM"},
        {"no reason", 0x0018, 0, 0, 0, L"WM_SHOWWINDOW: False, 0x0"},
        {"size", 0x0005, 4, 50 << 16 | 40, 0, L"WM_SIZE: SIZE_MAXHIDE, (40, 50)"},
        {"state of the interface", 0x0128, 0x10003, 0, 0,
         L"WM_UPDATEUISTATE: UIS_INITIALIZE, UISF_HIDEFOCUS | "},
        {"result", 0x0087, 0x09, 0, 0x81,
         L"WM_GETDLGCODE: VK_TAB, 0x0 = DLGC_WANTARROWS | DLGC_WANTCHARS | "},
        {"rectangle", 0x0214, 3, address(&rect), 0, L"WM_SIZING: 0x3, (x:10, y:-20, cx:100, cy:50)"},
        {"window position", 0x0047, 0, address(&position), 0,
         L"WM_WINDOWPOSCHANGED: (x:1, y:2, cx:300, cy:400)"},
        {"address that leads nowhere", 0x0216, 0, 0x1000, 0, L"WM_MOVING: 0x1000"},
        {"null address", 0x0216, 0, 0, 0, L"WM_MOVING: 0x0"},
        {"unknown message", 0x0404, 1, 2, 3, L"0x404: 0x1, 0x2"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Traced(row.message, row.wParam, row.lParam, row.extra), row.want);
    }
}

TEST(MessageTrace, KnowsEveryMessageOnceAndInOrder) {
    for (std::size_t i = 0; i < std::size(nexo::kMessages); ++i) {
        const nexo::MessageRow& row = nexo::kMessages[i];
        EXPECT_TRUE(i == 0 || nexo::kMessages[i - 1].id < row.id);
        EXPECT_EQ(Traced(row.id).View().substr(0, std::wcslen(row.name)), row.name);
    }
}

TEST(MessageTrace, NumbersLinesAndSeparatesThemAfterAPause) {
    DebugText debug;
    TraceMessage(L"", 0x0002, 0, 0, 0);
    const CString before = debug.Take();
    const int number = std::stoi(std::wstring(before.Mid(before.Find(L": ") - 3).View()));
    TraceMessage(nullptr, 0x0002, 0, 0, 0);
    CString want;
    want.Format(L"%03u: WM_DESTROY\n", number + 1);
    EXPECT_EQ(debug.Take(), want);

    nexo::platform::SleepMilliseconds(1100);
    TraceMessage(L"later ", 0x0002, 0, 0, 0);
    want.Format(L"--------------------------------------\n%03u: later WM_DESTROY\n", number + 2);
    EXPECT_EQ(debug.Take(), want);
}

TEST(MessageTrace, SwitchedOffMessagesAreNotWritten) {
    DebugText debug;
    DontTraceMessages(0x0113, 0x0404, 0, 0x0114);
    TraceMessage(L"", 0x0113, 0, 0, 0);
    EXPECT_EQ(debug.Take(), L"");
    TraceMessage(L"", 0x0114, 0, 0, 0);
    EXPECT_NE(debug.Take().Find(L"WM_HSCROLL"), -1) << "stands behind the zero that ends the list";
    TraceMessage(L"", 0x0404, 0, 0, 0);
    EXPECT_NE(debug.Take(), L"") << "only messages of the table can be switched off";
}

TEST(ErrorText, NamesThePlace) {
    EXPECT_EQ(FormatFileLineMessage(L"bad", L"a.cpp", -3), L"bad\nFile: a.cpp\nLine: -3");
    const MessageBoxes boxes;
    ReportError(L"bad", "gr\xC3\xBC\xC3\x9F.cpp", 12);
    ReportError(nullptr, nullptr, 0);
    EXPECT_EQ(boxes.Errors(), L"Error: bad\nFile: gr\u00FC\u00DF.cpp\nLine: 12|Error: \nFile: \nLine: 0|");
}

}  // namespace
