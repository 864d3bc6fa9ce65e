#include "host/app/commands/polyface_faces.h"

namespace ca {

namespace {

OdDbFaceRecordPtr recordOf(std::vector<int> const& corners)
{
    OdDbFaceRecordPtr record = new OdDbFaceRecord;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        int const corner = static_cast<int>(i);
        record->setVertexAt(corner, std::abs(corners[i]));
        if (corners[i] < 0)
            record->makeEdgeInvisibleAt(corner);
    }
    return record;
}

} // namespace

std::vector<OdDbFaceRecordPtr> polyfaceRecords(std::vector<int> const& corners)
{
    constexpr std::size_t kMost = OdDbFaceRecord::kCorners;
    if (corners.size() <= kMost)
        return {recordOf(corners)};
    // A fan about the first corner: each piece takes two edges of the face, the last one what is left.
    int const hub = std::abs(corners.front());
    std::vector<OdDbFaceRecordPtr> records;
    for (std::size_t i = 1; i + 1 < corners.size(); i += 2) {
        bool const isFirst = i == 1;
        bool const isLast = i + 3 >= corners.size();
        std::vector<int> piece = {isFirst ? corners.front() : -hub};
        for (std::size_t k = i; k < std::min(i + 3, corners.size()); ++k)
            piece.push_back(corners[k]);
        if (!isLast)
            piece.back() = -std::abs(piece.back());
        records.push_back(recordOf(piece));
    }
    return records;
}

} // namespace ca
