#ifndef NEXO_TESTS_SUPPORT_MESSAGEBOXES_H
#define NEXO_TESTS_SUPPORT_MESSAGEBOXES_H

#include <memory>

#include "nexo/base/CString.h"
#include "nexo/platform/UserInterface.h"

/// Takes the error messages of the library instead of the user, as long as it lives.
class MessageBoxes {
public:
    MessageBoxes() { nexo::platform::SetUserInterface(listener_); }
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    ~MessageBoxes() { nexo::platform::SetUserInterface(nullptr); }

    /// The texts of the messages with the error icon, with "|" behind each.
    [[nodiscard]] const CString& Errors() const { return listener_->errors; }

private:
    struct Listener : nexo::platform::UserInterface {
        nexo::platform::MessageAnswer ShowMessage(std::wstring_view text, std::wstring_view,
                                                  nexo::platform::MessageIcon icon,
                                                  nexo::platform::MessageButtons) override {
            if (icon == nexo::platform::MessageIcon::kError) errors += CString(text) + L"|";
            return nexo::platform::MessageAnswer::kOk;
        }
        bool MonitorFromRect(const CRect&, CRect&) override { return false; }
        int GetCaptionHeight() override { return 0; }

        CString errors;
    };
    std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
};

#endif
