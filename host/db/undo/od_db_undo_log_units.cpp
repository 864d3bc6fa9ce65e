// The log as users see it: commands, groups of them, and marks.
#include "host/db/undo/od_db_undo_log.h"

#include <algorithm>

/// Where the group begins whose records end before `end`.
std::size_t OdDbUndoLog::beginOfGroup(std::size_t end) const
{
    while (m_records[--end].kind != EKind::kGroupBegin) {
    }
    return end;
}

/// Where the last unit begins, marks behind it left aside; the number of records when there is none, or an open
/// group begins first.
std::size_t OdDbUndoLog::lastUnit() const
{
    std::size_t end = m_records.size();
    while (end > 0 && m_records[end - 1].kind == EKind::kMark)
        --end;
    if (end == 0 || m_records[end - 1].kind == EKind::kGroupBegin)
        return m_records.size();
    return m_records[end - 1].kind == EKind::kGroupEnd ? beginOfGroup(end - 1) : end - 1;
}

/// Takes back all records from this one on. Returns the name of the unit.
OdString OdDbUndoLog::takeBackFrom(std::size_t first, Undone& undone)
{
    Record const& record = m_records[first];
    OdString const name = record.kind == EKind::kGroupBegin ? OdString(L"GROUP") : record.name;
    while (m_records.size() > first)
        takeBackLast(undone);
    return name;
}

std::vector<OdString> OdDbUndoLog::undoUnits(int count)
{
    end();
    std::vector<OdString> names;
    for (; count > 0; --count) {
        std::size_t const first = lastUnit();
        if (first == m_records.size())
            break;
        if (names.empty())
            m_undone.emplace_back();
        names.push_back(takeBackFrom(first, m_undone.back()));
    }
    return names;
}

void OdDbUndoLog::keepLastUnit()
{
    end();
    m_undone.clear();
    std::erase_if(m_records, [](Record const& record) { return record.kind == EKind::kMark; });
    std::size_t const first = lastUnit();
    m_records.erase(m_records.begin(), m_records.begin() + static_cast<std::ptrdiff_t>(first));
}

void OdDbUndoLog::clear()
{
    m_running = false;
    m_records.clear();
    m_undone.clear();
}

void OdDbUndoLog::combineViews()
{
    end();
    if (m_records.size() < 2 || !m_records.back().isOfViewOnly || !m_records[m_records.size() - 2].isOfViewOnly)
        return;
    auto steps = std::move(m_records.back().steps);
    m_records.pop_back();
    std::ranges::move(steps, std::back_inserter(m_records.back().steps));
}

/// The number of records when there is none.
std::size_t OdDbUndoLog::lastMark() const
{
    for (std::size_t i = m_records.size(); i-- > 0;) {
        if (m_records[i].kind == EKind::kMark)
            return i;
        if (m_records[i].kind == EKind::kGroupEnd)
            i = beginOfGroup(i);
    }
    return m_records.size();
}

void OdDbUndoLog::push(EKind kind)
{
    end();
    m_records.emplace_back().kind = kind;
}

void OdDbUndoLog::setMark()
{
    push(EKind::kMark);
}

bool OdDbUndoLog::hasMark() const
{
    return lastMark() != m_records.size();
}

int OdDbUndoLog::marks() const
{
    return static_cast<int>(
        std::ranges::count_if(m_records, [](Record const& record) { return record.kind == EKind::kMark; }));
}

std::vector<OdString> OdDbUndoLog::undoToMark()
{
    end();
    std::size_t const mark = lastMark();
    bool const isMarked = mark != m_records.size();
    if (isGroupOpen() && (!isMarked || mark < beginOfGroup(m_records.size())))
        endGroup();
    std::size_t const first = isMarked ? mark + 1 : 0;
    std::vector<OdString> names;
    if (m_records.empty())
        return names;
    Undone& undone = m_undone.emplace_back();
    while (m_records.size() > first)
        names.push_back(takeBackFrom(lastUnit(), undone));
    if (isMarked)
        takeBackLast(undone);
    return names;
}

bool OdDbUndoLog::isGroupOpen() const
{
    auto const last = std::find_if(m_records.rbegin(), m_records.rend(), [](Record const& record) {
        return record.kind == EKind::kGroupBegin || record.kind == EKind::kGroupEnd;
    });
    return last != m_records.rend() && last->kind == EKind::kGroupBegin;
}

void OdDbUndoLog::beginGroup()
{
    endGroup();
    m_undone.clear();
    push(EKind::kGroupBegin);
}

void OdDbUndoLog::endGroup()
{
    end();
    if (!isGroupOpen())
        return;
    m_undone.clear();
    std::size_t const begin = beginOfGroup(m_records.size());
    bool const hasRecords = std::any_of(m_records.begin() + static_cast<std::ptrdiff_t>(begin), m_records.end(),
                                        [](Record const& record) { return record.kind == EKind::kChanges; });
    if (hasRecords)
        push(EKind::kGroupEnd);
    else
        m_records.resize(begin);
}
