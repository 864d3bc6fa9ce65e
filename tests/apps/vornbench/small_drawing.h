#pragma once

#include <sstream>
#include <string>

/// A drawing of groups written "code value", with a header that names its release.
inline std::string smallDrawing(std::string const& release, std::string const& groups)
{
    std::string text;
    std::istringstream lines("0 SECTION\n2 HEADER\n9 $ACADVER\n1 " + release + "\n9 $OWNVAR\n70 1\n0 ENDSEC\n" +
                             "0 SECTION\n2 ENTITIES\n" + groups + "0 ENDSEC\n0 EOF\n");
    for (std::string line; std::getline(lines, line);) {
        std::size_t const blank = line.find(' ');
        text += line.substr(0, blank) + "\n" + line.substr(blank + 1) + "\n";
    }
    return text;
}
