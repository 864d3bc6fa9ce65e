#pragma once

#include "apps/vornbench/legal_text.h"

#include <string>
#include <string_view>

/// Builds the text of one JSON object, member by member in the order of the calls.
class JsonObject
{
public:
    JsonObject() = default;
    JsonObject(std::string_view key, std::string_view value) { text(key, value); }

    JsonObject& text(std::string_view name, std::string_view value) { return raw(name, jsonString(value)); }
    JsonObject& count(std::string_view name, std::size_t value) { return raw(name, std::to_string(value)); }
    JsonObject& flag(std::string_view name, bool value) { return raw(name, value ? "true" : "false"); }
    /// A value that is JSON already.
    JsonObject& raw(std::string_view name, std::string const& json)
    {
        m_members += m_members.empty() ? "" : ",";
        m_members.append(jsonString(name)).append(":").append(json);
        return *this;
    }
    std::string object() const { return "{" + m_members + "}"; }

private:
    std::string m_members;
};

/// The JSON array of what `render` makes of each item.
template <typename Items, typename Render>
std::string jsonArray(Items const& items, Render render)
{
    std::string json;
    for (auto const& item : items)
        json += (json.empty() ? "[" : ",") + render(item);
    return json.empty() ? "[]" : json + "]";
}
