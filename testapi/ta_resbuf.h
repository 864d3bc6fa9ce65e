#pragma once

// Lists of result buffers, as commands and the C programming interface take them: building, cutting and comparing.

#include "testapi/ta_host.h"

namespace ta {

/// Builds a list of result buffers. It does not own the list: that goes to the host, or is freed with destroy().
class ResBuf
{
public:
    ResBuf() = default;
    /// A list of one node. Short of memory, the list is empty.
    /// @{
    explicit ResBuf(short value);
    explicit ResBuf(long value);
    explicit ResBuf(double value);
    explicit ResBuf(wchar_t const* text);
    explicit ResBuf(double const* point);
    explicit ResBuf(OdGePoint3d const& point);
    /// @}

    /// The first node, null for an empty list.
    sds_resbuf* head() const { return m_head; }
    bool isEmpty() const { return m_head == nullptr; }

    /// Adds a node at the end and returns it. Short of memory: null, and nothing added.
    /// @{
    sds_resbuf* append(short value);
    sds_resbuf* append(long value);
    sds_resbuf* append(double value);
    sds_resbuf* append(wchar_t const* text);
    sds_resbuf* append(double const* point);
    sds_resbuf* append(OdGePoint3d const& point);
    /// A node of that type with the two words at `name`, the name of an entity or selection set.
    sds_resbuf* append(short type, long const* name);
    /// @}

    /// Links the one node `node` into the list so that `before` follows it; a null `before` means at the end.
    /// Where `node` pointed to is forgotten. False, and nothing changed, when `before` is not in the list, or a
    /// node of the chain that starts at `node` already is.
    bool insertBefore(sds_resbuf* node, sds_resbuf const* before);
    /// Frees all nodes after this one. False when it is not in the list.
    bool cutAt(sds_resbuf const* node);
    /// Unlinks the node, which belongs to the caller then; null when it is not in the list.
    sds_resbuf* extract(sds_resbuf* node);
    /// Frees the list and leaves it empty.
    void destroy();

private:
    sds_resbuf* appendNode(sds_resbuf* node);
    /// The link that points to the node; null when the node is not in the list. For a null node the link at the
    /// end.
    sds_resbuf** linkTo(sds_resbuf const* node);

    sds_resbuf* m_head = nullptr;
};

/// Links the list `tail` after the last node of `head`, which takes it over. RTNORM, or RTERROR when there is
/// neither.
int rbAppend(sds_resbuf*& head, sds_resbuf* tail);

/// Compares the values of two single nodes by the type of the first, which is the expected one: reals and points
/// within 1e-10, texts without regard to case or, with `ignoreCase` false, by their length alone; nodes of other
/// kinds count as equal. What differs is written to `message`, which stays as it is when the values are equal.
bool areEqual(sds_resbuf const& a, sds_resbuf const& b, bool ignoreCase, OdString& message);

} // namespace ta
