// Drawings of random content, saved and read. A failure names the seed; VORN_RANDOM_SEED in the environment runs
// that one alone, VORN_RANDOM_COUNT sets the number of seeds.
#include "host/dxf/dxf_file.h"
#include "tests/host/dxf/drawing_image.h"
#include "tests/host/dxf/random_drawing.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstdlib>

namespace {

constexpr std::uint64_t kFirstSeed = 1;
constexpr std::uint64_t kUsualCount = 30;

std::uint64_t numberFromEnvironment(char const* name, std::uint64_t otherwise)
{
    char const* const text = std::getenv(name);
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

/// Calls the function with each seed and its drawing.
template <class Function>
void withEachDrawing(Function function, EOddities oddities = EOddities::kAnywhere)
{
    std::uint64_t const first = numberFromEnvironment("VORN_RANDOM_SEED", kFirstSeed);
    std::uint64_t const count =
        std::getenv("VORN_RANDOM_SEED") ? 1 : numberFromEnvironment("VORN_RANDOM_COUNT", kUsualCount);
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        try {
            function(*randomDrawing(seed, oddities));
        } catch (OdError const& error) {
            CPPUNIT_FAIL("seed " + std::to_string(seed) + ": " + error.what());
        } catch (CppUnit::Exception const& failure) {
            CPPUNIT_FAIL("seed " + std::to_string(seed) + ": " + failure.message().details());
        }
    }
}

constexpr dxf::FileFormat kText{};
constexpr dxf::FileFormat kBinary{.isBinary = true};

/// Reads what was saved; there is nothing in it to be mended.
OdDbDatabasePtr readBack(std::string const& bytes)
{
    dxf::ReadReport report;
    OdDbDatabasePtr const database = dxf::readBytes(L"random.dxf", bytes, &report);
    // Random sizes of meshes do not fit the number of their vertices.
    std::erase_if(report.notes, [](dxf::ReadNote const& note) {
        return note.text.str().find(L"vertices instead of") != std::wstring::npos;
    });
    if (!report.notes.empty())
        CPPUNIT_FAIL(dxf::locationOf(L"random.dxf", report, report.notes[0]).toUtf8() + ": " +
                     report.notes[0].text.toUtf8());
    return database;
}

/// Where the bytes begin to differ, with what stands around.
void assertSameBytes(std::string const& a, std::string const& b)
{
    constexpr std::size_t kShown = 60;
    if (a == b)
        return;
    auto const [atA, atB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    auto const place = static_cast<std::size_t>(atA - a.begin());
    std::size_t const from = place < kShown ? 0 : place - kShown;
    CPPUNIT_FAIL("byte " + std::to_string(place) + ": " +
                 shownTag(OdDbTag::ofText(0, std::string_view(a).substr(from, 2 * kShown))) + " against " +
                 shownTag(OdDbTag::ofText(0, std::string_view(b).substr(from, 2 * kShown))));
}

class RandomDrawingsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RandomDrawingsTest);
    CPPUNIT_TEST(readAfterSaveIsEqual);
    CPPUNIT_TEST(savesGiveEqualBytes);
    CPPUNIT_TEST(olderReleasesAreFixedPoints);
    CPPUNIT_TEST_SUITE_END();

    void readAfterSaveIsEqual()
    {
        withEachDrawing([](OdDbDatabase const& drawing) {
            DrawingImage const image(drawing);
            for (dxf::FileFormat const format : {kText, kBinary}) {
                OdDbDatabasePtr const again = readBack(dxf::writeBytes(drawing, format));
                CPPUNIT_ASSERT_EQUAL(std::string(), image.differenceTo(DrawingImage(*again)));
            }
        });
    }

    void savesGiveEqualBytes()
    {
        withEachDrawing([](OdDbDatabase const& drawing) {
            std::string const text = dxf::writeBytes(drawing, kText);
            std::string const binary = dxf::writeBytes(drawing, kBinary);
            assertSameBytes(text, dxf::writeBytes(drawing, kText));
            assertSameBytes(binary, dxf::writeBytes(drawing, kBinary));
            std::string const binaryOfText = dxf::writeBytes(*readBack(text), kBinary);
            assertSameBytes(binary, binaryOfText);
            assertSameBytes(text, dxf::writeBytes(*readBack(binaryOfText), kText));
        });
    }

    static void assertFixedPoint(OdDbDatabase const& drawing, dxf::Release const& release, bool isBinary)
    {
        dxf::FileFormat const format{release.id, isBinary};
        try {
            std::string const once = dxf::writeBytes(drawing, format);
            assertSameBytes(once, dxf::writeBytes(*readBack(once), format));
        } catch (CppUnit::Exception const& failure) {
            CPPUNIT_FAIL(OdString(release.name).toUtf8() + (isBinary ? " binary: " : ": ") +
                         failure.message().details());
        }
    }

    void olderReleasesAreFixedPoints()
    {
        withEachDrawing(
            [](OdDbDatabase const& drawing) {
                for (dxf::Release const& release : dxf::writableReleases())
                    for (bool const isBinary : {false, true})
                        assertFixedPoint(drawing, release, isBinary);
            },
            EOddities::kAtTheEnd);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(RandomDrawingsTest);

} // namespace
