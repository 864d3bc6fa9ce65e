// Drawing utilities that work on a whole document.
#include "testapi/ta_assert.h"
#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils.h"

#include <cmath>
#include <string_view>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_draw_utils";

/// Takes the next answer off the line. None is left once it ended with the line.
OdString takeAnswer(std::wstring_view& line, bool& isLast)
{
    bool const isText = ca::CommandProcessor::get().waitsForText();
    std::size_t const end = isText ? std::wstring_view::npos : line.find_first_of(L" \t");
    isLast = end == std::wstring_view::npos;
    OdString answer(line.substr(0, end));
    line.remove_prefix(isLast ? line.size() : end + 1);
    return answer;
}

} // namespace

void setUCS(ca::CaDoc& doc, double rotX, double rotY, double rotZ)
{
    constexpr double kNoTurn = 1e-10;
    ca::UcsOp ucs(doc);
    ucs.set(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis, OdGeVector3d::kYAxis);
    ucs.commit();
    double const degrees[] = {rotX, rotY, rotZ};
    for (int axis = 0; axis < 3; ++axis)
        if (std::abs(degrees[axis]) > kNoTurn)
            ucs.rotate(axis, odgeToRadians(degrees[axis]));
    ucs.commit();
}

void setUCSORG(ca::CaDoc& doc, OdGePoint3d const& origin)
{
    ca::UcsOp ucs(doc);
    ucs.setOrigin(origin);
    ucs.commit();
}

void executeCommands(OdString const& text)
{
    ca::InputLoopContextOptions const options;
    int lineNumber = 0;
    for (std::wstring_view line : ut::splitLines(text.str())) {
        ++lineNumber;
        bool isLast = line.starts_with(L';'); // nothing of a comment
        while (!isLast) {
            OdString const answer = takeAnswer(line, isLast);
            ca::RbListPtr const list(sds_buildlist(RTSTR, answer.c_str(), RTNONE));
            sds_resbuf const* const rbScript = list.get();
            if (RTNORM != sds_cmd(rbScript)) // the reason is there only after the call
                failCheck("RTNORM == sds_cmd(rbScript)",
                          odFormat(L"Line %d: %ls", lineNumber, options.error().c_str()), {s_area, __LINE__});
        }
    }
}

void saveFile(OdDbDatabase const& database, OdString const& fileName)
{
    OdString path = fileNameExpEnv(fileName);
    ut::correctSlashes(path);
    try {
        dxf::writeFile(database, path, dxf::formatOfCode(dxf::kCurrentFormatCode));
    } catch (OdError const& error) {
        failForced(L"failed to save the drawing: " + error.description(), {s_area, __LINE__});
    }
}

} // namespace ta
