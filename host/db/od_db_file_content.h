#pragma once

#include "host/db/filer/od_db_tag_list.h"

#include <string>
#include <vector>

/// What a drawing keeps of its file apart from objects and header variables, to be written back in place.
struct OdDbFileContent
{
    /// A section in the order of the file. Known sections are written from the drawing; the tags of unknown ones,
    /// and of the list of classes, are kept here.
    struct Section
    {
        std::string name;
        OdDbTagList tags;
    };
    OdDbTagList leadingComments; ///< before the first section
    std::vector<Section> sections;
};
