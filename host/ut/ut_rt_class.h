#pragma once

#include <memory>
#include <string_view>
#include <vector>

namespace ut {

class TestGeData;

/// Run-time record of a class of test data, one for each class, compared by address. A record makes itself known
/// by its name for as long as it exists, so that the classes of a module come and go with it. The second of two
/// records of one name is refused with a message on standard error: it works, but find() goes on giving the first.
class CRtClass
{
public:
    using CreateFunction = std::unique_ptr<TestGeData> (*)();

    /// `name` is ASCII and has to outlive the record. `create` is null for a class without objects of its own.
    CRtClass(char const* name, CRtClass const* parent, CreateFunction create);
    ~CRtClass();
    CRtClass(CRtClass const&) = delete;
    CRtClass& operator=(CRtClass const&) = delete;

    /// Null when the name is unknown.
    static CRtClass const* find(std::wstring_view name);
    /// Names of all classes that have objects, in order. They live as long as their records.
    static std::vector<std::wstring_view> names();

    char const* name() const { return m_name; }
    /// Null for the root.
    CRtClass const* parent() const { return m_parent; }
    /// This class or one of its parents is the other one.
    bool isKindOf(CRtClass const* other) const;
    /// What makes a new, empty object; null for a class without objects of its own.
    CreateFunction createFunction() const { return m_create; }

private:
    char const* m_name;
    CRtClass const* m_parent;
    CreateFunction m_create;
};

} // namespace ut
