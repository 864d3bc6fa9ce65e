#include "host/app/prompt.h"

#include "host/app/keywords.h"

namespace ca {

Prompt& Prompt::keywords(OdString const& list)
{
    m_keywords = list;
    return *this;
}

Prompt& Prompt::hiddenKeywords(OdString const& list)
{
    m_hidden = list;
    return *this;
}

Prompt& Prompt::defaultText(OdString const& text)
{
    m_default = text;
    return allowEnter();
}

Prompt& Prompt::allowEnter()
{
    m_takesEnter = true;
    return *this;
}

Prompt& Prompt::base(OdGePoint3d const& point)
{
    m_base = point;
    return *this;
}

Prompt& Prompt::twoPoints()
{
    m_takesTwoPoints = true;
    return *this;
}

Prompt& Prompt::orText()
{
    m_takesOtherText = true;
    return *this;
}

Prompt& Prompt::atLeast(double limit, bool exclusive)
{
    m_least = limit;
    m_leastIsExclusive = exclusive;
    return *this;
}

Prompt& Prompt::atMost(double limit)
{
    m_most = limit;
    return *this;
}

Prompt& Prompt::notZero()
{
    m_notZero = true;
    return *this;
}

OdString Prompt::shown() const
{
    OdString line = m_text;
    if (!m_keywords.isEmpty())
        line += OdString(L" ") + keywordsForPrompt(m_keywords);
    if (!m_default.isEmpty())
        line += OdString(L" <") + m_default + L">";
    return line + L": ";
}

OdString Prompt::refusal(double number) const
{
    bool const positive = m_least && *m_least == 0;
    if (m_least && (number < *m_least || (m_leastIsExclusive && number == *m_least))) {
        if (positive)
            return m_leastIsExclusive ? L"Value must be positive and nonzero." : L"Value must not be negative.";
        return odFormat(L"Value must be at least %g.", *m_least);
    }
    if (m_most && number > *m_most)
        return odFormat(L"Value must be at most %g.", *m_most);
    if (m_notZero && number == 0)
        return L"Value must be nonzero.";
    return {};
}

} // namespace ca
