#pragma once

#include "host/db/od_db_database.h"
#include "host/db/od_db_entity.h"

/// All that a drawing holds, as tags in the order of files: for comparing drawings.
class DrawingImage
{
public:
    explicit DrawingImage(OdDbDatabase const& database);

    /// What differs first, with both values; empty for equal images.
    std::string differenceTo(DrawingImage const& other) const;

private:
    struct Part
    {
        std::string title;
        OdDbTagList tags;
    };
    void addRecord(OdDbObject const& object);
    void addEntity(OdDbEntity const& entity);
    void addRecords(OdDbDatabase const& database);
    void addHeader(OdDbDatabase const& database);
    void addFileContent(OdDbFileContent const& content);

    std::vector<Part> m_parts;
};

/// A tag as failures show it.
std::string shownTag(OdDbTag const& tag);
