#pragma once

namespace ut {

/// Puts another implementation of a service (FileSystem, Clock) in place for as long as this object lives.
/// Replacements nest and end in reverse order. For tests; not for use from several threads.
template <class Service>
class ScopedReplacement
{
public:
    explicit ScopedReplacement(Service& replacement) : m_previous(Service::install(&replacement)) {}
    ~ScopedReplacement() { Service::install(m_previous); }
    ScopedReplacement(ScopedReplacement const&) = delete;
    ScopedReplacement& operator=(ScopedReplacement const&) = delete;

private:
    Service* m_previous;
};

} // namespace ut
