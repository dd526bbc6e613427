#pragma once

#include <clocale>

#include <locale.h>  // newlocale

namespace vemo {

/// While it lives, this thread reads and writes numbers as in the "C" locale, whatever the program
/// has set. Restores the former locale of the thread at its end. Other threads are not affected.
class CLocaleScope {
public:
    CLocaleScope() : m_c_locale(newlocale(LC_ALL_MASK, "C", nullptr)) {
        m_former = uselocale(m_c_locale);
    }
    ~CLocaleScope() {
        uselocale(m_former);
        freelocale(m_c_locale);
    }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t m_c_locale;
    locale_t m_former;
};

}  // namespace vemo
