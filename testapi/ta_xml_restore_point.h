#pragma once

#include <pugixml.hpp>

namespace ta {

/// An element as it was, for writing that may fail half-way.
class XmlRestorePoint
{
public:
    explicit XmlRestorePoint(pugi::xml_node node) : m_node(node) { m_before.append_copy(node); }

    /// Brings the element back unless what was written to it is good; returns whether it is.
    bool keepIf(bool isGood)
    {
        if (isGood || !m_node)
            return isGood;
        m_node.remove_attributes();
        m_node.remove_children();
        for (pugi::xml_attribute const attribute : m_before.first_child().attributes())
            m_node.append_copy(attribute);
        for (pugi::xml_node const child : m_before.first_child().children())
            m_node.append_copy(child);
        return false;
    }

private:
    pugi::xml_node m_node;
    pugi::xml_document m_before;
};

} // namespace ta
