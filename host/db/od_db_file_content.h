#pragma once

#include "host/db/filer/od_db_tag_list.h"

#include <string>
#include <vector>

/// What a drawing keeps of its file apart from objects and header variables, to be written back in place.
struct OdDbFileContent
{
    /// A section in the order of the file.
    struct Section
    {
        std::string name;
        OdDbTagList commentsBefore;
        OdDbTagList commentsInside; ///< between the name of the section and its first record
        OdDbTagList tags;           ///< of a section that the host does not know, and of the list of classes
    };
    /// A symbol table in the order of the file.
    struct Table
    {
        std::string name;
        OdDbTagList tags; ///< records that the host does not know; of an unknown table everything behind its name
        OdDbTagList commentsBehind;
    };
    std::string release; ///< of the file, as its header names it; empty for a new drawing
    std::vector<Section> sections;
    std::vector<Table> tables;
    OdDbTagList closingComments; ///< behind the last section
};
