#include "nexo/export/TextStListExport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "nexo/base/Time.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/UserInterface.h"
#include "support/LocaleScope.h"
#include "support/TemporaryFolder.h"

using nexo::platform::MessageAnswer;
using nexo::platform::MessageButtons;
using nexo::platform::MessageIcon;
using nexo::platform::Utf8FromWide;

namespace {

/// Notes what is shown, "?" before questions, and answers them.
struct User : nexo::platform::UserInterface {
    MessageAnswer ShowMessage(std::wstring_view text, std::wstring_view, MessageIcon icon,
                              MessageButtons buttons) override {
        const bool asks = icon == MessageIcon::kQuestion && buttons == MessageButtons::kYesNo;
        EXPECT_TRUE(asks || icon == MessageIcon::kError);
        shown += (asks ? "?" : "") + Utf8FromWide(text) + "|";
        return asks ? answer : MessageAnswer::kOk;
    }
    bool MonitorFromRect(const CRect&, CRect&) override { return false; }
    int GetCaptionHeight() override { return 0; }
    void ShowWaitCursor(bool show) override {
        waiting += show ? 1 : -1;
        ++waitChanges;
    }

    MessageAnswer answer = MessageAnswer::kNo;
    std::string shown;
    int waiting = 0;
    int waitChanges = 0;
};

class TextStListExport : public ::testing::Test {
protected:
    TextStListExport() { nexo::platform::SetUserInterface(m_user); }
    ~TextStListExport() override { nexo::platform::SetUserInterface(nullptr); }

    int Create(std::string_view layout, CProjectInfo* project = nullptr) {
        m_user->shown.clear();
        return CTextStListExport().CreateStList(m_list, m_folder.Write("template.txt", layout),
                                                m_folder.Path("list.txt"), project);
    }
    /// The file that Create() writes, its line ends as LF, or what was shown when it failed.
    std::string Export(std::string_view layout, CProjectInfo* project = nullptr) {
        if (Create(layout, project) == 0) return "failed: " + m_user->shown;
        std::string text = m_folder.Read("list.txt");
        for (std::size_t at = 0; (at = text.find("\r\n", at)) != text.npos; ++at) text.erase(at, 1);
        return m_user->shown + text;
    }
    CArticle& Add(const wchar_t* position, const wchar_t* text) {
        CArticle article;
        article.position = position;
        article.text = text;
        m_list.AddTail(article);
        return m_list.GetTail();
    }

    TemporaryFolder m_folder;
    std::shared_ptr<User> m_user = std::make_shared<User>();
    CStList m_list;
};

TEST_F(TextStListExport, PlacesFields) {
    CArticle& article = Add(L"7", L"Pipe");
    article.quantity = 2.5;
    article.unit = L"m";
    article.articleNumber = L"A-1";
    article.price = 0.125;
    article.currency = L"EUR";
    struct Row {
        const char* name;
        const char* line;
        const char* want;
    };
    const Row rows[] = {
        {"left, right and rest", "$POS $NUM|  $TXT", "7     2.50  Pipe"},
        {"all fields", "$UNT $ART $PRC|  $CURR  $TXT", "m    A-1   0.12  EUR    Pipe"},
        {"value of exactly the width", "$NUM $TXT|.", "2.50  Pipe."},
        {"the column before the next field stays", "$POS$UNT $TXT", "7  Sm    Pipe"},
        {"bar behind the next field does not count", "$POS $UNT|", "7        m"},
        {"text in front and behind", "a|b $POS | c", "a|b      7 c"},
        {"no fields", "plain", "plain"},
        {"names end at white space", "$POS\tx", "7"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Export("#OUTPUT\n" + std::string(row.line) + "\n#END\n"), std::string(row.want) + "\n");
    }
    EXPECT_EQ(m_user->waiting, 0);
    EXPECT_GT(m_user->waitChanges, 0);
}

TEST_F(TextStListExport, NumbersThatAreNoneAreBlank) {
    const LocaleScope locale("de_DE.UTF-8");
    const struct {
        double value;
        const char* want;
    } rows[] = {
        {-1.0, "[        "},
        {-0.001, "[        "},
        {std::nan(""), "[        "},
        {0.0, "[    0.00"},
        {1234567.895, "failed"},
        {12345.678, "[12345.68"},
        {std::numeric_limits<double>::infinity(), "[     inf"},
    };
    CArticle& article = Add(L"", L"");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        article.quantity = row.value;
        EXPECT_TRUE(Export("#OUTPUT\n[$NUM   |\n#END").starts_with(row.want));
    }
    article.price = std::numeric_limits<double>::max();
    EXPECT_EQ(Export("#OUTPUT\n$PRC\n#END").size(), 309u + 4);
}

TEST_F(TextStListExport, FurtherTextLinesStandAloneInTheColumnOfTheText) {
    Add(L"1", L"A\r\nB\n\nC").unit = L"x\r\ny";
    EXPECT_EQ(Export("#OUTPUT\n$POS $TXT| $UNT\n%\n% two\n#END"),
              "1        A x  y\n\n\n"
              "         B \n\n\n"
              "           \n\n\n"
              "         C \n\n\n");
    CString line;
    EXPECT_EQ(m_list.GetHead().GetNextLine(line), 1);
    EXPECT_EQ(line, L"A\r");
    EXPECT_EQ(Export("#output\n$POS $TXT\n#end"), "1    A\n     B\n      \n     C\n");
    EXPECT_EQ(m_list.GetCount(), 1);
}

TEST_F(TextStListExport, FillsPages) {
    constexpr const char* layout =
        "text outside\n#top1 first\nList $PROJ_NA  |$PROJ_NR\n#END\n//#VAR\n#TopN\nPage $PAGE_NR\n#END\n"
        "#BOTTOM\n$PAGE_NR|$PROJ_DA\n   \n// gone\n#END of footer\n"
        "#OUTPUT\n$POS $TXT\n#END\n#VAR\n&LINES_PG 10\n&LINES_T1\t3\n&LINES_TN 2 lines\n&LINES_BO 2\n#END\n";
    CProjectInfo project;
    project.projectName = L"House";
    project.projectNumber = L"4711";
    Add(L"1", L"a\nb\nc\nd");
    Add(L"2", L"e\nf");
    Add(L"3", L"g\nh\ni\nj\nk\nl\nm");
    EXPECT_EQ(Export(layout, &project),
              "List       House4711\n\n\n1    a\n     b\n     c\n     d\n\n\n        1 \n"
              "Page 2\n\n2    e\n     f\n3    g\n     h\n     i\n     j\n\n        2 \n"
              "Page 3\n\n     k\n     l\n     m\n\n\n\n\n        3 \n");
    m_list.RemoveAll();
    EXPECT_EQ(Export(layout), "List             \n\n\n\n\n\n\n\n\n        1 \n");
}

// Headers and footers larger than their variables say keep all their lines.
TEST_F(TextStListExport, BlocksLargerThanTheirHeight) {
    m_user->answer = MessageAnswer::kYes;
    for (int i = 0; i < 3; ++i) Add(L"x", L"");
    EXPECT_EQ(Export("#TOP1\na\nb\nc\n#END\n#BOTTOM\nz\n#END\n#OUTPUT\n$POS\n%\n#END\n"
                     "#VAR\n&LINES_PG 7\n&LINES_T1 2\n#END"),
              "?Gibt es wirklich 7 druckbare Zeilen?|a\nb\nc\nx\n\n\nz\nx\n\nx\n\n\n\nz\n");
}

TEST_F(TextStListExport, DateOfToday) {
    const CTime before = CTime::GetCurrentTime();
    const std::string text = Export("#TOP1\n$DATE_TD\n#END");
    const CTime after = CTime::GetCurrentTime();
    const auto format = [](const CTime& time) { return Utf8FromWide(time.Format(L"%d.%m.%Y\n").View()); };
    EXPECT_TRUE(text == format(before) || text == format(after)) << text;
}

TEST_F(TextStListExport, FaultsOfTheTemplate) {
    const std::string badField =
        "\n\nEs dürfen nur gültige Variablennamen\nmit der Kennzeichnung '$' aufgeführt sein!";
    const std::string secondOutput =
        "Die Definition der Ausgabezeile wurde bereits eingelesen.Eine mehrzeilige Ausgabe ist nicht "
        "möglich!";
    const struct {
        const char* layout;  // names the row
        std::string want;
    } rows[] = {
        {"\n#FOO x\n", "Zeile 2: \"#FOO x\"\nUnbekannter oder fehlplazierter Block!"},
        {"#END", "Zeile 1: \"#END\"\nUnbekannter oder fehlplazierter Block!"},
        {"#TOP1\na\n#VAR", "Zeile 1: \"#TOP1\"\nDer Block ist nicht mit #END abgeschlossen!"},
        {"#TOP1\n#END\n#TOP1", "Zeile: 3\nDer Kopf der 1. Seite wurde bereits eingelesen!"},
        {"#TOPN\n#END\n#TOPN", "Zeile: 3\nDer Kopf der 2. Seite wurde bereits eingelesen!"},
        {"#BOTTOM\n#END\n#BOTTOM", "Zeile: 3\nDie Fußzeile wurde bereits eingelesen!"},
        {"#OUTPUT\n#END\n#OUTPUT", secondOutput},
        {"#OUTPUT\na\n%\nb", secondOutput},
        {"#OUTPUT\n%e",
         "Zeile 2: %e\n\nZusätzliche Leerzeilen sind nur nach der Definitionder "
         "Ausgabezeile gestattet!"},
        {"#TOP1\n$POS\n#END", "Zeile 2: \"$POS\"" + badField},
        {"#OUTPUT\na $PAGE_NR\n", "Zeile 2: \"a $PAGE_NR\"" + badField},
        {"#OUTPUT\n$pos\n", "Zeile 2: \"$pos\"" + badField},
        {"#OUTPUT\n$$POS\n", "Zeile 2: \"$$POS\"" + badField},
        {"#VAR\n#END\n#VAR\n", "Es wurde bereits ein Variablenblock eingelesen!"},
        {"#VAR\nX 5\n",
         "Zeile 2: \"X 5\"\n\nIm Variablenblock dürfen nur gültige Variablennamen\nmit der "
         "Kennzeichnung '&' aufgeführt sein!"},
        {"#VAR\n&X \n", "Zeile 2: \"&X \"\nKein Wert für die Variable X angegeben!"},
        {"#VAR\n&X a5\n", "Zeile 2: \"&X a5\"\nKein Wert für die Variable X angegeben!"},
        {"#VAR\n&X 5\n", "Zeile 2: \"&X 5\"\n Unbekannter Variablenname!"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.layout);
        m_folder.Write("list.txt", "old");
        EXPECT_EQ(Export(row.layout), "failed: " + row.want + "|");
        EXPECT_EQ(m_folder.Read("list.txt"), "");
    }
}

TEST_F(TextStListExport, AsksAboutPageSizes) {
    const struct {
        const char* name;
        int least, most;
        const char* before;
        const char* after;
    } rows[] = {
        {"LINES_PG", 10, 100, "Gibt es wirklich ", " druckbare Zeilen?|"},
        {"LINES_T1", 2, 30, "Ist der Kopf für Seite 1 wirklich ", " Zeilen groß?|"},
        {"LINES_TN", 2, 30, "Ist der Kopf für Seite 2 und folgende wirklich ", " Zeilen groß?|"},
        {"LINES_BO", 1, 20, "Ist die Fußzeile wirklich ", " Zeilen groß?|"},
    };
    for (const auto& row : rows) {
        for (const int value : {row.least, row.most, row.least - 1, row.most + 1}) {
            const std::string number = std::to_string(value);
            SCOPED_TRACE(row.name + (" " + number));
            const bool silent = value >= row.least && value <= row.most;
            const std::string layout = "#VAR\n&" + std::string(row.name) + " " + number + "\n#END\n";
            for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
                m_user->answer = answer;
                EXPECT_EQ(Create(layout), silent || answer == MessageAnswer::kYes ? 1 : 0);
                EXPECT_EQ(m_user->shown, silent ? "" : "?" + (row.before + number) + row.after);
            }
        }
    }
}

TEST_F(TextStListExport, FailsWhileWritingAndKeepsWhatWasWritten) {
    m_user->answer = MessageAnswer::kYes;
    Add(L"1", L"a");
    Add(L"12345", L"b");
    EXPECT_EQ(Export("#OUTPUT\n$POS $TXT\n#END"),
              "failed: Zeile 2: \"$POS $TXT\"\n\nDer Wert \"12345\" ist zu lang für das Feld \"$POS\"!|");
    EXPECT_EQ(m_folder.Read("list.txt"), "1    a\r\n");
    EXPECT_NE(Export("#OUTPUT\n$POS \n#END\n#VAR\n&LINES_PG 3\n&LINES_T1 3\n#END")
                  .find("Auf Seite 1 ist kein Platz"),
              std::string::npos);
    EXPECT_NE(Export("#OUTPUT\n$POS \n#END\n#VAR\n&LINES_PG 1\n&LINES_TN 1\n#END")
                  .find("Auf Seite 2 ist kein Platz"),
              std::string::npos);
    EXPECT_EQ(m_folder.Read("list.txt"), "1\r\n");
    EXPECT_EQ(Export("#TOP1\nonly a header\n#END"),
              "failed: Die Vorlage enthält keine Definition der Ausgabezeile!|");
}

TEST_F(TextStListExport, FilesThatCannotBeHad) {
    const CString missing = m_folder.Path("missing");
    CTextStListExport exporter;
    EXPECT_EQ(exporter.CreateStList(m_list, missing, m_folder.Path("list.txt"), nullptr), 0);
    EXPECT_EQ(m_user->shown,
              "Die Vorlage \"" + Utf8FromWide(missing.View()) + "\" konnte nicht geöffnet werden!|");
    EXPECT_EQ(exporter.CreateStList(m_list, m_folder.Write("t", ""), missing + L"/list.txt", nullptr), 0);
    EXPECT_NE(m_user->shown.find("list.txt\" konnte nicht erstellt werden!|"), std::string::npos);
}

TEST_F(TextStListExport, WritesInTheEncodingOfTheTemplate) {
    Add(L"1", L"K\x00FC\x20AC\x03A9\xD83D\xDE00");
    const std::wstring layout = L"#OUTPUT\n\x00FC$TXT\n#END\n";
    const std::wstring want = L"\x00FCK\x00FC\x20AC\x03A9\xD83D\xDE00\r\n";
    for (const bool big : {false, true}) {
        nexo::platform::ByteBuffer bytes, wanted;
        const auto order = big ? nexo::platform::ByteOrder::kBig : nexo::platform::ByteOrder::kLittle;
        nexo::platform::Utf16FromWide(L"\xFEFF" + layout, order, bytes);
        nexo::platform::Utf16FromWide(L"\xFEFF" + want, order, wanted);
        ASSERT_EQ(Create(bytes.View()), 1);
        EXPECT_EQ(m_folder.Read("list.txt"), wanted.View());
    }
    ASSERT_EQ(Create("\xEF\xBB\xBF" + Utf8FromWide(layout)), 1);
    EXPECT_EQ(m_folder.Read("list.txt"), "\xEF\xBB\xBF" + Utf8FromWide(want));
    ASSERT_EQ(Create("#OUTPUT\n\xFC$TXT\n#END\n"), 1);
    EXPECT_EQ(m_folder.Read("list.txt"), "\xFCK\xFC\x80???\r\n");
}

TEST_F(TextStListExport, LargeTemplatesAndTexts) {
    std::string columns;
    for (int i = 0; i < 200'000; ++i) columns += "$POS ";
    CArticle& article = Add(L"1", L"");
    ASSERT_EQ(Create("#OUTPUT\n" + columns + "\n#END"), 1);
    EXPECT_EQ(m_folder.Read("list.txt").size(), 5 * 199'999u + 3);
    for (int i = 0; i < 1'000'000; ++i) article.text += L"a\n";
    ASSERT_EQ(Create("#OUTPUT\n$TXT\n#END\n#VAR\n&LINES_PG 10\n#END"), 1);
    EXPECT_EQ(m_folder.Read("list.txt").size(), 3'000'003u + 9 * 2);
    m_list.RemoveAll();
    std::string lines;
    for (int i = 0; i < 1'000'000; ++i) lines += "$PAGE_NR\n";
    EXPECT_EQ(Create("#TOP1\n" + lines + "#END\n"), 1);
    EXPECT_EQ(m_folder.Read("list.txt").size(), 3'000'000u);
}

}  // namespace
