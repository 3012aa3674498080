#include "plugin/gauges/WidestText.h"

#include <algorithm>

QString WidestText::with(const QString &text, qint64 now)
{
    constexpr qint64 minute = 60'000;
    m_shown.erase(std::remove_if(m_shown.begin(), m_shown.end(),
                                 [&](const Shown &each) {
                                     return now - each.time > minute ||
                                            each.text.size() == text.size();
                                 }),
                  m_shown.end());
    m_shown.append({text, now});
    return std::max_element(m_shown.begin(), m_shown.end(),
                            [](const Shown &one, const Shown &other) {
                                return one.text.size() < other.text.size();
                            })
        ->text;
}
