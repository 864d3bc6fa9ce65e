#include "host/dxf/dxf_save_report.h"

namespace dxf {

namespace {

constexpr wchar_t kBehindSubject[] = L": ";

/// "<subject>" or "<subject> (<count>)".
OdString subjectOf(SaveNote const& note, std::size_t length)
{
    OdString const subject = note.text.left(length);
    return note.count == 1 ? subject : subject + odFormat(L" (%lld)", static_cast<long long>(note.count));
}

} // namespace

void SaveReport::add(OdString const& text, OdDbHandle object)
{
    auto const [it, isNew] = m_numbers.emplace(text, m_notes.size());
    if (isNew)
        m_notes.push_back({text, 1, object});
    else
        ++m_notes[it->second].count;
}

std::vector<SaveNote> SaveReport::grouped() const
{
    struct Group
    {
        std::vector<SaveNote const*> notes;
        OdString subjects;
        OdString statement; ///< with what stands between it and the subject
    };
    std::vector<Group> groups;
    std::unordered_map<OdString, std::size_t> numbers;
    for (SaveNote const& note : m_notes) {
        std::size_t const length = note.text.find(kBehindSubject);
        bool const hasSubject = length != OdString::npos;
        OdString const statement = hasSubject ? note.text.mid(length) : note.text;
        auto const [it, isNew] = numbers.emplace(statement, groups.size());
        if (isNew)
            groups.push_back({{}, {}, statement});
        Group& group = groups[it->second];
        group.notes.push_back(&note);
        if (hasSubject)
            group.subjects += (isNew ? L"" : L", ") + subjectOf(note, length);
    }
    std::vector<SaveNote> result;
    for (Group const& group : groups) {
        bool const isSingle = group.notes.size() == 1;
        result.push_back(isSingle ? *group.notes.front()
                                  : SaveNote{group.subjects + group.statement, 1, group.notes.front()->first});
    }
    return result;
}

} // namespace dxf
