#ifndef NEXO_TESTS_SUPPORT_LOCALESCOPE_H
#define NEXO_TESTS_SUPPORT_LOCALESCOPE_H

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string>

/// Puts the process under "de_DE.UTF-8" or "tr_TR.UTF-8", made in the build folder, for as long as it lives.
/// A locale that is missing throws, so that a test never passes for want of it.
class LocaleScope {
public:
    explicit LocaleScope(const char* name) {
        setenv("LOCPATH", NEXO_LOCALES, 1);
        if (!std::setlocale(LC_ALL, name)) throw std::runtime_error(std::string("no locale ") + name);
    }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;
    ~LocaleScope() { std::setlocale(LC_ALL, "C"); }
};

#endif
