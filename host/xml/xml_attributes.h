#pragma once

// Several attributes of one element. A layout that names its attributes once, in a function template that takes a
// reader or a writer, serves both ways: all functions are false on failure.

#include "host/geom/curves/od_ge_turn.h"
#include "host/xml/xml_text.h"
#include "host/xml/xml_value.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace oa {

/// Reads attributes; fast when they are asked for in the order of the element.
class AttributeReader
{
public:
    explicit AttributeReader(pugi::xml_node node) : m_node(node), m_next(node.first_attribute()) {}

    template <class T>
    bool value(wchar_t const* name, T& value)
    {
        pugi::xml_attribute const attribute = find(name);
        return attribute && parseValue(attribute.value(), value);
    }
    /// True, with the standard value, when the attribute is absent.
    template <class T>
    bool optional(wchar_t const* name, T& value, T const& standard)
    {
        pugi::xml_attribute const attribute = find(name);
        if (!attribute) {
            value = standard;
            return true;
        }
        return parseValue(attribute.value(), value);
    }
    /// Two numbers of which the second is where the first one leads to.
    bool range(wchar_t const* fromName, wchar_t const* toName, double& from, double& to)
    {
        return value(fromName, from) && value(toName, to);
    }
    /// Values separated by blanks; `expected`, how many there should be, saves time.
    template <class T>
    bool items(wchar_t const* name, OdArray<T>& values, std::uint64_t expected = 0)
    {
        pugi::xml_attribute const attribute = find(name);
        if (!attribute)
            return false;
        std::wstring_view text = attribute.value();
        OdArray<T> read;
        read.reserve(std::min<std::uint64_t>(expected, (text.size() + 1) / 2)); // a value takes two characters
        for (std::wstring_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
            T item;
            if (!parseValue(word, item))
                return false;
            read.append(item);
        }
        values = std::move(read);
        return true;
    }
    /// Values separated by blanks, and how many they are.
    template <class T>
    bool list(wchar_t const* countName, wchar_t const* name, OdArray<T>& values)
    {
        unsigned count = 0;
        OdArray<T> read;
        if (!value(countName, count) || !items(name, read, count) || read.size() != count)
            return false;
        values = std::move(read);
        return true;
    }
    /// True, and empty, when both attributes are absent.
    template <class T>
    bool optionalList(wchar_t const* countName, wchar_t const* name, OdArray<T>& values)
    {
        if (m_node.attribute(countName) || m_node.attribute(name))
            return list(countName, name, values);
        values.clear();
        return true;
    }

private:
    pugi::xml_attribute find(wchar_t const* name)
    {
        if (m_isInOrder && !m_next)
            return {}; // all of them were asked for
        if (m_next && std::wstring_view(m_next.name()) == name) {
            pugi::xml_attribute const found = m_next;
            m_next = m_next.next_attribute();
            return found;
        }
        pugi::xml_attribute const found = m_node.attribute(name);
        m_isInOrder = m_isInOrder && !found;
        return found;
    }

    pugi::xml_node m_node;
    pugi::xml_attribute m_next; ///< the one behind the last that was asked for in the order of the element
    bool m_isInOrder = true;
};

/// Gathers attributes and writes them when all are known to be good.
class AttributeWriter
{
public:
    explicit AttributeWriter(int precision) : m_precision(precision) {}

    template <class T>
    bool value(wchar_t const* name, T const& value)
    {
        return appendValue(add(name), value, m_precision);
    }
    /// Leaves out what looks like the standard value.
    template <class T>
    bool optional(wchar_t const* name, T const& value, T const& standard)
    {
        OdString text;
        OdString usual;
        if (!appendValue(text, value, m_precision) || !appendValue(usual, standard, m_precision))
            return false;
        m_attributes.push_back({name, text, text != usual});
        return true;
    }
    /// The ends of an arc. False also when the digits do not tell them apart: nobody could read the way between.
    bool range(wchar_t const* fromName, wchar_t const* toName, double from, double to)
    {
        if (!value(fromName, from) || !value(toName, to))
            return false;
        OdString const& start = m_attributes.end()[-2].text;
        OdString& end = m_attributes.back().text;
        if (!odgeIsFullTurn({from, to}))
            return start != end;
        // Of a start of many turns so few digits are left that those of the end may fall short of a full turn.
        double startRead = 0;
        double endRead = 0;
        if (parseValue(start.str(), startRead) && parseValue(end.str(), endRead) &&
            !odgeIsFullTurn({startRead, endRead}))
            end = start;
        return true;
    }
    template <class T>
    bool items(wchar_t const* name, OdArray<T> const& values)
    {
        OdString& text = add(name);
        return std::ranges::all_of(values, [&](T const& item) {
            if (!text.isEmpty())
                text += L' ';
            return appendValue(text, item, m_precision);
        });
    }
    template <class T>
    bool list(wchar_t const* countName, wchar_t const* name, OdArray<T> const& values)
    {
        return value(countName, static_cast<unsigned>(values.size())) && items(name, values);
    }
    template <class T>
    bool optionalList(wchar_t const* countName, wchar_t const* name, OdArray<T> const& values)
    {
        if (!values.isEmpty())
            return list(countName, name, values);
        m_attributes.push_back({countName, {}, false});
        m_attributes.push_back({name, {}, false});
        return true;
    }

    /// Attributes of these names are replaced, those that were left out are removed.
    bool writeTo(pugi::xml_node node) const
    {
        return node && std::ranges::all_of(m_attributes, [&](Attribute const& attribute) {
                   if (!attribute.isWritten) {
                       node.remove_attribute(attribute.name);
                       return true;
                   }
                   pugi::xml_attribute target = node.attribute(attribute.name);
                   if (!target)
                       target = node.append_attribute(attribute.name);
                   return target && target.set_value(attribute.text.c_str());
               });
    }

private:
    struct Attribute
    {
        wchar_t const* name;
        OdString text;
        bool isWritten;
    };
    OdString& add(wchar_t const* name) { return m_attributes.emplace_back(Attribute{name, {}, true}).text; }

    int m_precision;
    std::vector<Attribute> m_attributes;
};

} // namespace oa
