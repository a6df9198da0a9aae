#include "nexo/platform/UserInterface.h"

#include <atomic>
#include <span>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/base/CharClass.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Console.h"
#include "nexo/platform/Replaceable.h"

namespace nexo::platform {
namespace {

struct Choice {
    MessageAnswer answer;
    const wchar_t* caption;
};

constexpr Choice kOk = {MessageAnswer::kOk, L"OK"};
constexpr Choice kCancel = {MessageAnswer::kCancel, L"Abbrechen"};
constexpr Choice kAbort = {MessageAnswer::kAbort, L"Beenden"};
constexpr Choice kRetry = {MessageAnswer::kRetry, L"Wiederholen"};
constexpr Choice kIgnore = {MessageAnswer::kIgnore, L"Ignorieren"};
constexpr Choice kYes = {MessageAnswer::kYes, L"Ja"};
constexpr Choice kNo = {MessageAnswer::kNo, L"Nein"};

// In the order of MessageButtons; `refusal` is the answer when nobody can be asked.
struct ButtonsRow {
    MessageAnswer refusal;
    std::size_t count;
    Choice choices[3];
};

constexpr ButtonsRow kButtons[] = {
    {MessageAnswer::kOk, 1, {kOk}},
    {MessageAnswer::kCancel, 2, {kOk, kCancel}},
    {MessageAnswer::kAbort, 3, {kAbort, kRetry, kIgnore}},
    {MessageAnswer::kNo, 3, {kYes, kNo, kCancel}},
    {MessageAnswer::kNo, 2, {kYes, kNo}},
    {MessageAnswer::kCancel, 2, {kRetry, kCancel}},
};

std::atomic<TextTranslator> textTranslator = nullptr;

CString Translated(const wchar_t* german) {
    const TextTranslator translator = textTranslator;
    return translator == nullptr ? CString(german) : translator(german);
}

// "1 = Ja, 2 = Nein: "
std::string Prompt(std::span<const Choice> choices) {
    std::string prompt;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (i > 0) prompt += ", ";
        prompt += std::to_string(i + 1) + " = " + Utf8FromWide(Translated(choices[i].caption).View());
    }
    return prompt + ": ";
}

// An answer is the number of a choice or the beginning of exactly one caption.
const Choice* Chosen(std::span<const Choice> choices, const std::string& answer) {
    const CString text = WideFromUtf8(answer).Trim();
    if (text.IsEmpty()) return nullptr;
    const Choice* chosen = nullptr;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (text == std::to_wstring(i + 1).c_str()) return &choices[i];
        const CString caption = Translated(choices[i].caption);
        if (!EqualNoCase(caption.Left(text.GetLength()).View(), text.View())) continue;
        if (chosen != nullptr) return nullptr;
        chosen = &choices[i];
    }
    return chosen;
}

/// The user interface of a program without windows.
class ConsoleInterface final : public UserInterface {
public:
    MessageAnswer ShowMessage(std::wstring_view text, std::wstring_view title, MessageIcon,
                              MessageButtons buttons) override {
        const std::string head = title.empty() ? ProgramName() : Utf8FromWide(title);
        WriteToError(head + ": " + Utf8FromWide(text) + "\n");
        const ButtonsRow& row = kButtons[static_cast<std::size_t>(buttons)];
        return row.count > 1 && CanAsk() ? Ask(row) : row.refusal;
    }
    bool MonitorFromRect(const CRect&, CRect&) override { return false; }
    int GetCaptionHeight() override { return 0; }

private:
    static MessageAnswer Ask(const ButtonsRow& row) {
        const std::span choices(row.choices, row.count);
        std::string answer;
        for (;;) {
            WriteToError(Prompt(choices));
            if (!ReadAnswer(answer)) return row.refusal;
            if (const Choice* chosen = Chosen(choices, answer)) return chosen->answer;
        }
    }
};

Replaceable<UserInterface, ConsoleInterface>& Current() {
    static Replaceable<UserInterface, ConsoleInterface> userInterface;
    return userInterface;
}

}  // namespace

UserInterface::~UserInterface() = default;

std::shared_ptr<UserInterface> GetUserInterface() {
    return Current().Get();
}

void SetUserInterface(std::shared_ptr<UserInterface> userInterface) {
    Current().Set(std::move(userInterface));
}

void SetTextTranslator(TextTranslator translator) {
    textTranslator = translator;
}

void UserInterface::ShowWaitCursor(bool) {}

WaitCursor::WaitCursor() : userInterface_(GetUserInterface()) {
    userInterface_->ShowWaitCursor(true);
}

WaitCursor::~WaitCursor() {
    userInterface_->ShowWaitCursor(false);
}

void ShowError(std::wstring_view text, std::wstring_view title) {
    GetUserInterface()->ShowMessage(text, title, MessageIcon::kError, MessageButtons::kOk);
}

}  // namespace nexo::platform
