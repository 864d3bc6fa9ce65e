#include "host/dxf/older/dxf_lift_viewport.h"

#include "host/dxf/older/dxf_old_viewport.h"

#include <string>
#include <vector>

namespace dxf {

namespace {

constexpr int kApplication = 1001;
constexpr int kText = 1000;
constexpr int kBrace = 1002;
constexpr int kLayer = 1003;
constexpr int kInteger = 1070;

/// The extended data of a viewport, read from front to back.
class OldView
{
public:
    explicit OldView(LiftRecord const& record) : m_record(record) {}

    /// False when the data are not there or not of the form that is known.
    bool read()
    {
        return findName() && take(kBrace, "{") && takeVersion() && takeItems() && take(kBrace, "{") &&
               takeLayers() && take(kBrace, "}") && take(kBrace, "}");
    }

    std::size_t begin() const { return m_begin; }
    std::size_t end() const { return m_at; }
    /// The data of the application hold nothing else.
    bool isAlone() const
    {
        return m_record.at(m_begin - 1).code == kApplication &&
               (m_at == m_record.size() || m_record.at(m_at).code == kApplication);
    }
    std::vector<OdDbTag> const& groups() const { return m_groups; }
    std::vector<std::string> const& frozenLayers() const { return m_frozenLayers; }

private:
    bool findName()
    {
        bool isInApplication = false;
        for (m_at = m_record.bodyEnd(); m_at < m_record.size(); ++m_at) {
            OdDbTag const tag = m_record.at(m_at);
            if (tag.code == kApplication)
                isInApplication = tag.text == kOldViewApplication;
            else if (isInApplication && tag.is(kText, kOldViewName)) {
                m_begin = m_at++;
                return true;
            }
        }
        return false;
    }

    bool take(int code, std::string_view text)
    {
        return m_at < m_record.size() && m_record.at(m_at).is(code, text) && ++m_at != 0;
    }

    bool takeVersion()
    {
        bool const isKnown = m_at < m_record.size() && m_record.at(m_at).code == kInteger &&
                             m_record.at(m_at).integer == kOldViewVersion;
        return isKnown && ++m_at != 0;
    }

    bool takeItems()
    {
        std::int64_t flags = 0;
        for (OldViewItem const& item : oldViewItems()) {
            OdDbTag const tag = m_at < m_record.size() ? m_record.at(m_at) : OdDbTag();
            auto const kind = item.extendedCode == kInteger ? OdDbTagKind::kInteger : OdDbTagKind::kReal;
            if (tag.code != item.extendedCode || tag.kind != kind)
                return false;
            if (item.isFlag())
                flags |= item.flagsOf(tag.integer);
            else if (kind == OdDbTagKind::kInteger)
                m_groups.push_back(OdDbTag::ofInteger(item.code, tag.integer));
            else
                m_groups.push_back(OdDbTag::ofReal(item.code, tag.real));
            ++m_at;
        }
        m_groups.push_back(OdDbTag::ofInteger(kViewFlagsCode, flags));
        return true;
    }

    bool takeLayers()
    {
        for (; m_at < m_record.size() && m_record.at(m_at).code == kLayer; ++m_at)
            m_frozenLayers.emplace_back(m_record.at(m_at).text);
        return true;
    }

    LiftRecord const& m_record;
    std::size_t m_at = 0;
    std::size_t m_begin = 0; ///< of the name of the view
    std::vector<OdDbTag> m_groups;
    std::vector<std::string> m_frozenLayers;
};

} // namespace

void liftViewport(LiftRecord& record, LiftHeader const&)
{
    constexpr int kRenderMode = 281;
    OldView view(record);
    if (record.has(kViewFlagsCode) || !view.read())
        return;
    std::size_t const begin = view.isAlone() ? view.begin() - 1 : view.begin();
    record.remove(begin, view.end() - begin);
    for (OdDbTag const& group : view.groups())
        record.insert(record.bodyEnd(), group);
    for (std::string const& layer : view.frozenLayers())
        record.insert(record.bodyEnd(), OdDbTag::ofText(kViewFrozenLayerCode, layer));
    record.insert(record.bodyEnd(), OdDbTag::ofInteger(kRenderMode, 0));
}

} // namespace dxf
