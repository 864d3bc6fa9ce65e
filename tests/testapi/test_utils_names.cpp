#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils.h"
#include "tests/support/od_result_of.h"
#include "tests/support/scoped_environment.h"
#include "tests/testapi/cmd_test_run.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstdlib>

namespace {

class UtilsNamesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(UtilsNamesTest);
    CPPUNIT_TEST(namesOfRecords);
    CPPUNIT_TEST(namesOfTemporaryFiles);
    CPPUNIT_TEST(givenTemporaryName);
    CPPUNIT_TEST(testFilesPath);
    CPPUNIT_TEST(clearsFolders);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    /// Names that come again within a second, until they are used. A new second may begin between any two calls.
    template <class Container, class Use>
    static void checkNames(Container const& container, Use const& use)
    {
        int repeated = 0;
        for (int i = 0; i < 8; ++i) {
            OdString const first = ta::createUniqueName(&container, L"N ");
            repeated += first == ta::createUniqueName(&container, L"N ") ? 1 : 0;
            CPPUNIT_ASSERT(first.startsWith(L"N ") && first.getLength() > 2);
            CPPUNIT_ASSERT(first.str().find_first_not_of(L"0123456789", 2) == std::wstring::npos);
            use(first);
            CPPUNIT_ASSERT(container.has(first));
            CPPUNIT_ASSERT(ta::createUniqueName(&container, L"N ") != first);
        }
        CPPUNIT_ASSERT(repeated >= 6);
    }

    void namesOfRecords()
    {
        OdDbDatabasePtr const database(new OdDbDatabase);
        auto const layers = database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        checkNames(*layers, [&](OdString const& name) {
            OdDbLayerTableRecordPtr const layer(new OdDbLayerTableRecord);
            layer->setName(name);
            layers->add(layer.get());
        });
        auto const dictionary = database->getNamedObjectsDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
        checkNames(*dictionary, [&](OdString const& name) { dictionary->setAt(name, new OdDbDictionary); });
        OdDbSymbolTable const* const none = nullptr;
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { ta::createUniqueName(none, L"N"); }));
    }

    void namesOfTemporaryFiles()
    {
        std::srand(7);
        std::string const expected = [] {
            char digits[20];
            std::snprintf(digits, sizeof digits, "%x", static_cast<unsigned>(std::rand()));
            return "p" + std::string(digits);
        }();
        OdString const folder = OdString::fromUtf8(m_folder.path().string());
        for (wchar_t const* const ext : {L"txt", L".txt"}) {
            std::srand(7);
            CPPUNIT_ASSERT(m_folder / (expected + ".txt") ==
                           ta::createUniqueTempFileName(L"p", ext, folder.c_str()));
        }
        std::srand(7);
        CPPUNIT_ASSERT(m_folder / expected == ta::createUniqueTempFileName(L"p", L"", folder.c_str()));
        m_folder.write(expected + ".txt", "");
        std::srand(7);
        OdString const second = ta::createUniqueTempFileName(L"p", L"txt", folder.c_str());
        CPPUNIT_ASSERT(second != m_folder / (expected + ".txt") && !ut::fileExists(second));
        CPPUNIT_ASSERT(ta::createUniqueTempFileName(L"p", L"txt", folder.c_str()) != second);

        ScopedEnvironment const temp("TMPDIR", m_folder.path().c_str());
        CPPUNIT_ASSERT(ta::createUniqueTempFileName(L"q", L"txt").startsWith((folder + L"/q").str()));
    }

    void givenTemporaryName()
    {
        ScopedEnvironment const temp("TMPDIR", m_folder.path().c_str());
        OdString path;
        CPPUNIT_ASSERT(ta::createTempFileName(path, L"n", L".dxf"));
        CPPUNIT_ASSERT(m_folder / "n.dxf" == path);
        m_folder.write("n.dxf", "");
        path = OdString();
        CPPUNIT_ASSERT(!ta::createTempFileName(path, L"n", L"dxf"));
        CPPUNIT_ASSERT(m_folder / "n.dxf" == path);
    }

    void testFilesPath()
    {
        CPPUNIT_ASSERT(ta::getTestFilesPath(true).isEmpty()); // no bench runs these tests
        m_folder.write("tests.xml", "<testsConfig basePath='" + (m_folder.path() / "a\\b").string() + "'/>");
        vorntest::TestsConfig config;
        config.load((m_folder / "tests.xml").str());
        vorntest::VornTestBench const bench(std::move(config));
        OdString const path = m_folder / "a/b";
        OdString const before = L"/x;" + path + L"c"; // a longer name is another folder
        oa::SysVars::setSRCHPATH(before);
        CPPUNIT_ASSERT(path == ta::getTestFilesPath(false, &bench));
        CPPUNIT_ASSERT(before == oa::SysVars::getSRCHPATH());
        for (int i = 0; i < 2; ++i) {
            CPPUNIT_ASSERT(path == ta::getTestFilesPath(true, &bench));
            CPPUNIT_ASSERT(before + L";" + path == oa::SysVars::getSRCHPATH());
        }
        oa::SysVars::setSRCHPATH(L"");
    }

    void clearsFolders()
    {
        std::filesystem::create_directories(m_folder.path() / "sub" / "inner");
        std::filesystem::create_directories(m_folder.path() / "empty");
        for (char const* const name : {"a.txt", ".hidden", "no extension", "sub/kept.txt"})
            m_folder.write(name, "x");
        std::filesystem::create_directory_symlink(m_folder.path() / "sub", m_folder.path() / "link");
        ta::clearDir(m_folder / "");
        CPPUNIT_ASSERT((std::set<std::string>{"sub", "empty"} == m_folder.names()));
        CPPUNIT_ASSERT_EQUAL(std::string("x"), m_folder.read("sub/kept.txt"));

        ta::clearDir(m_folder / "missing");
        CPPUNIT_ASSERT_EQUAL(
            std::string("assertion failed|Expression: !error|clearDir: failed to clear @/sub/kept.txt: "
                        "Not a directory"),
            withoutFolder(failureOf([&] { ta::clearDir(m_folder / "sub/kept.txt"); }), m_folder.path().string()));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(UtilsNamesTest);

} // namespace
