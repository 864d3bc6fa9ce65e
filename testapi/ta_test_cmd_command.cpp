// The operation `command`: one list of the command's name and all answers, handed over in a single call.
#include "testapi/ta_assert.h"
#include "testapi/ta_resbuf.h"
#include "testapi/ta_test_cmd.h"
#include "testapi/ta_utils.h"

#include <algorithm>
#include <new>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";
constexpr wchar_t attr_value[] = L"value";

/// The command's name and answers; frees them. It remembers the last node, so that long lists of answers take no
/// longer than they must.
class AnswerList
{
public:
    AnswerList() = default;
    ~AnswerList() { m_list.destroy(); }
    AnswerList(AnswerList const&) = delete;
    AnswerList& operator=(AnswerList const&) = delete;

    template <class Value>
    void append(Value const& value)
    {
        take(ResBuf(value));
    }
    void appendName(short type, SdsName const& name)
    {
        ResBuf one;
        one.append(type, name.words);
        take(one);
    }
    sds_resbuf const* head() const { return m_list.head(); }

private:
    void take(ResBuf one)
    {
        if (one.isEmpty())
            throw std::bad_alloc();
        if (m_list.isEmpty())
            m_list = one;
        else
            rbAppend(m_last, one.head());
        m_last = one.head();
    }

    ResBuf m_list;
    sds_resbuf* m_last = nullptr;
};

/// What the readers of answers work on.
struct Command
{
    TestCmdArg& instance;
    OdString const name;
    AnswerList answers;
    ScopedSdsSSetsHolder selectionSets;
};

/// What cannot be found is left out; why is said on the command line.
bool readSSet(pugi::xml_node node, OdDbSelectionSetPtr const& pSSet, OdDbDatabase* database,
              std::map<OdString, OdDbObjectId> const& namedObjectIds)
{
    for (pugi::xml_node const child : node.children(L"fullSubentPath")) {
        OdDbFullSubentPath path;
        OdString reason;
        if (oa::read(child, database, path, &reason, nullptr, &namedObjectIds))
            pSSet->append(path);
        else
            ca::warningPrompt(L"fullSubentPath: " + reason);
    }
    return pSSet->numEntities() > 0;
}

using AnswerNode = pugi::xml_node_iterator;

void readEmptyString(Command& command, AnswerNode)
{
    command.answers.append(L"");
}

void readString(Command& command, AnswerNode it)
{
    OdString val;
    TA_CHECK(oa::readAttr(*it, attr_value, val), L"command %ls: unable to read value attribute for string node",
             command.name.c_str());
    command.answers.append(val.c_str());
}

void readReal(Command& command, AnswerNode it)
{
    double val = 0.0;
    TA_CHECK(oa::readAttr(*it, attr_value, val), L"command %ls: unable to read value attribute for real node",
             command.name.c_str());
    command.answers.append(val);
}

void readPoint(Command& command, AnswerNode it)
{
    OdGePoint3d pt;
    TA_CHECK(oa::readAttr(*it, attr_value, pt), L"command %ls: error reading point", command.name.c_str());
    command.answers.append(pt);
}

void readSelection(Command& command, AnswerNode it)
{
    TestCmdArg& instance = command.instance;
    OdDbSelectionSetPtr const pSSet = OdDbSelectionSet::create(instance.curDb());
    TA_CHECK(readSSet(*it, pSSet, instance.curDb(), instance.namedObjectIds()),
             L"command %ls: failed to create SSet", command.name.c_str());
    command.answers.appendName(RTPICKS, command.selectionSets.append(pSSet.get()));
    bool pressEnter = true;
    oa::readAttr(*it, L"pressEnter", pressEnter);
    if (pressEnter)
        command.answers.append(L"");
}

void readFileName(Command& command, AnswerNode it)
{
    OdString val;
    TA_CHECK(oa::readAttr(*it, attr_value, val), L"command %ls: unable to read value attribute for filename node",
             command.name.c_str());
    command.answers.append(command.instance.resolvedFileName(val.c_str()).getFullPath().c_str());
}

struct AnswerKind
{
    std::wstring_view name;
    void (*read)(Command& command, AnswerNode it);
};
constexpr AnswerKind s_answerKinds[] = {
    {L"string_empty", readEmptyString}, {L"string", readString},     {L"real", readReal}, {L"point", readPoint},
    {L"sset", readSelection},           {L"filename", readFileName},
};

void readAnswer(Command& command, AnswerNode it)
{
    AnswerKind const* const kind = std::ranges::find(s_answerKinds, it->name(), &AnswerKind::name);
    if (kind == std::end(s_answerKinds))
        failForced(odFormat(L"command %ls: unknown parameter %ls", command.name.c_str(), it->name()),
                   {s_area, __LINE__});
    kind->read(command, it);
}

} // namespace

void commandOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    pugi::xml_attribute const cmdNameAttr = node.attribute(L"name");
    TA_CHECK(cmdNameAttr, L"command: error reading command name");
    Command command{test, cmdNameAttr.value(), {}, {}};
    command.answers.append(command.name.c_str());
    for (AnswerNode it = node.begin(); it != node.end(); ++it)
        if (it->type() == pugi::node_element)
            readAnswer(command, it);
    int const rc = sds_cmd(command.answers.head());
    TA_CHECK(rc == RTNORM, L"command %ls: command failed", command.name.c_str());
    if (pugi::xml_attribute const names = node.attribute(L"nameEntities"))
        test.nameAddedEntities(OdString(names.value()));
}

} // namespace ta
