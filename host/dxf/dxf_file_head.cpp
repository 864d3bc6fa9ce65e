#include "host/dxf/dxf_file_head.h"

#include "host/dxf/dxf_tag_source.h"

namespace dxf {

FileHead readHead(TagSource& source)
{
    FileHead head{&releaseOf(ERelease::kR12), {}};
    OdDbTag tag;
    std::string variable;
    while (source.next(tag) && !tag.is(0, "ENDSEC") && !tag.is(0, "EOF")) {
        if (tag.code == 9) {
            variable = tag.text;
        } else if (variable == "$ACADVER" && tag.code == 1) {
            head.release = findRelease(tag.text);
            if (!head.release)
                source.fail(odFormat(L"\"%ls\" is not a known release of drawing files",
                                     OdString::fromUtf8(tag.text).c_str()));
        } else if (variable == "$DWGCODEPAGE" && tag.code == 3) {
            head.codePage = tag.text;
        }
    }
    return head;
}

} // namespace dxf
