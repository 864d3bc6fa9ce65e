#include "testmodules/cmdtests/reference_test.h"

#include "testmodules/cmdtests/reference_findings.h"

#include <iostream>

namespace {

constexpr char s_area[] = "testmodules/cmdtests";

/// An attribute that may be missing; false only where its text is no such value.
template <class T>
bool readOptional(pugi::xml_node node, wchar_t const* name, T& value)
{
    return !node.attribute(name) || oa::readAttr(node, name, value);
}

void readTolerance(pugi::xml_node node, wchar_t const* name, double& value)
{
    TA_CHECK(readOptional(node, name, value) && value >= 0, L"%ls: '%ls' is not a number from 0 on", name,
             node.attribute(name).value());
}

ta::Comparison::Options optionsOf(pugi::xml_node node)
{
    ta::Comparison::Options options;
    readTolerance(node, L"tolerance", options.tolerance);
    options.relTolerance = options.eps = options.tolerance;
    readTolerance(node, L"relTolerance", options.relTolerance);
    TA_CHECK(readOptional(node, L"skipCommonProps", options.skipCommonProps),
             L"skipCommonProps is neither true nor false: '%ls'", node.attribute(L"skipCommonProps").value());
    return options;
}

OdDbEntityPtr openedEntity(OdDbObjectId id, OdString const& name)
{
    TA_CHECK(!id.isErased(), L"Entity %ls is erased", name.c_str());
    return id.open<OdDbEntity>();
}

/// Names and handles in the tested drawing, and what stands for them in the reference drawing.
struct EntityLists
{
    OdArray<OdString> entities;
    OdArray<OdString> references; ///< empty: those of equal handle

    explicit EntityLists(pugi::xml_node node)
        : entities(ta::TestCmdArg::tokenizeNamesString(node.attribute(L"entities").value()))
    {
        pugi::xml_attribute const given = node.attribute(L"references");
        if (!given)
            return;
        references = ta::TestCmdArg::tokenizeNamesString(given.value());
        TA_CHECK(entities.size() == references.size(), L"entities lists %d, references %d", int(entities.size()),
                 int(references.size()));
    }
};

struct OpenedPair
{
    OdDbEntityPtr actual;
    OdDbEntityPtr expected;
};

std::vector<OpenedPair> openedPairs(EntityLists const& lists, ta::TestCmdArg const& test,
                                    ta::TestCmdArg::ReferenceContext const& context)
{
    std::vector<OpenedPair> pairs;
    for (std::size_t i = 0; i < lists.entities.size(); ++i) {
        OdString const& name = lists.entities[i];
        OdDbObjectId const id = test.getObjectId(name);
        TA_CHECK(id.database() == test.curDb(), L"Entity %ls is not in the current drawing", name.c_str());
        OdString const reference = lists.references.empty() ? id.getHandle().ascii() : lists.references[i];
        pairs.push_back({openedEntity(id, name), openedEntity(context.getObjectId(reference), reference)});
    }
    return pairs;
}

void compareEntities(std::vector<OpenedPair> const& pairs, ta::DrawingComparison& comparison)
{
    std::vector<OdDbEntity const*> entities;
    entities.reserve(pairs.size());
    for (OpenedPair const& pair : pairs)
        entities.push_back(pair.actual.get());
    comparison.recordsUsedBy(entities);
    for (OpenedPair const& pair : pairs)
        comparison.entities(*pair.actual, *pair.expected);
}

int modelSpaceEntities(OdDbDatabase const& database)
{
    int count = 0;
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        ++count;
    return count;
}

void compareModelSpaces(OdDbDatabase const& actual, OdDbDatabase const& expected,
                        ta::DrawingComparison& comparison, ReferenceFindings& findings)
{
    OdDbObjectId const space1 = actual.getModelSpaceId(), space2 = expected.getModelSpaceId();
    int const count1 = modelSpaceEntities(actual), count2 = modelSpaceEntities(expected);
    if (count1 == count2) {
        comparison.entitiesInOrder(space1, space2);
    } else {
        findings.add(odFormat(L"Entities in model space: %d, in the reference: %d", count1, count2),
                     {s_area, __LINE__});
        comparison.entitiesMatched(space1, space2);
    }
}

} // namespace

void ReferenceTest::assertReference(ReferenceContext const& context)
{
    pugi::xml_node const node = context.node();
    TA_CHECK(node.attribute(L"entities") || !node.attribute(L"references"),
             L"references says what stands for entities, but entities is missing");
    ta::Comparison::Options const options = optionsOf(node);
    if (!context.referenceDb())
        context.getObjectId(OdString()); // fails, and says what is missing
    if (!curDb())
        throw OdError(eNoDocument);

    OdDbDatabase const &actual = *curDb(), &expected = *context.referenceDb();
    ut::FileName const reference = resolvedFileName(node.attribute(L"dwgName").value());
    ReferenceFindings findings(*this, reference.getFullPath());
    ta::DrawingComparison comparison(actual, expected, options,
                                     [&](ta::DrawingDifference const& difference) { findings.add(difference); });
    if (node.attribute(L"entities")) {
        compareEntities(openedPairs(EntityLists(node), *this, context), comparison);
    } else {
        comparison.recordsOfEqualName();
        compareModelSpaces(actual, expected, comparison, findings);
    }

    OdString const note = ReferenceFindings::fieldsNote(comparison.comparedByFields());
    findings.failIfAny(note);
    if (!note.isEmpty())
        std::cout << getName() << ", " << reference.getFullName().toUtf8() << ": " << note.toUtf8() << std::endl;
}
