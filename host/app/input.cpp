#include "host/app/input.h"

#include "host/app/point_input.h"
#include "host/sds/sds_names.h"
#include "host/ut/ut_number.h"

namespace ca {

namespace {

template <class... Handlers>
struct Overloaded : Handlers...
{
    using Handlers::operator()...;
};
template <class... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

std::optional<Input> inputFrom(sds_resbuf const& node)
{
    auto const& value = node.resval;
    switch (node.restype) {
    case RTSTR: return Input::ofText(value.rstring);
    case RTREAL: return Input{value.rreal};
    case RTANG:
    case RTORINT: return Input{value.rreal * (180.0 / OdaPI)}; // a number that answers for an angle is in degrees
    case RTSHORT: return Input{std::int64_t(value.rint)};
    case RTLONG:
    case RTINT64: return Input{value.rlong};
    case RTPOINT: return Input{OdGePoint3d(value.rpoint[0], value.rpoint[1], 0)};
    case RT3DPOINT: return Input{OdGePoint3d(value.rpoint[0], value.rpoint[1], value.rpoint[2])};
    case RTPICKS: {
        OdDbSelectionSetPtr const set = selectionSetOf(value.rlname);
        return set.isNull() ? std::nullopt : std::optional(Input{set});
    }
    case RTENAME: {
        OdDbObjectId const id = objectIdOf(value.rlname);
        return id.isNull() ? std::nullopt : std::optional(Input{id});
    }
    default: return std::nullopt;
    }
}

} // namespace

Input Input::ofText(OdString text)
{
    return text.isEmpty() ? Input{Enter{}} : Input{std::move(text)};
}

OdString Input::shown() const
{
    return std::visit(Overloaded{
                          [](Enter) { return OdString(); },
                          [](OdString const& text) { return text; },
                          [](double number) { return ut::formatRealShortest(number); },
                          [](std::int64_t number) { return OdString(std::to_wstring(number)); },
                          [](OdGePoint3d const& point) { return formatPoint(point); },
                          [](OdDbSelectionSetPtr const&) { return OdString(L"<Selection set>"); },
                          [](OdDbObjectId id) { return L"<Entity " + id.getHandle().ascii() + L">"; },
                      },
                      value);
}

std::optional<std::vector<Input>> inputsFrom(sds_resbuf const* list)
{
    std::vector<Input> inputs;
    for (sds_resbuf const* node = list; node; node = node->rbnext) {
        if (node->restype == RTNONE)
            continue;
        std::optional<Input> input = inputFrom(*node);
        if (!input)
            return std::nullopt;
        inputs.push_back(std::move(*input));
    }
    return inputs;
}

} // namespace ca
