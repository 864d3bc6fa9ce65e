// Opening and saving drawings of mixed entities: 4 lines, circle, arc, text, polyline of 5 vertices, point and
// block reference in every 10.
#include "benchmarks/drawing_walk.h"
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/dxf/dxf_file.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>

namespace {

class MixedDrawing
{
public:
    explicit MixedDrawing(int count) : m_database(new OdDbDatabase)
    {
        m_database->disableUndoRecording(true);
        OdSmartPtr<OdDbBlockTableRecord> const block = new OdDbBlockTableRecord;
        block->setName(L"B1");
        m_block =
            m_database->table(OdDbTableKind::kBlock).objectId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block);
        block->appendOdDbEntity(new OdDbLine({0, 0, 0}, {1, 1, 0}));
        auto const space = m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        for (int i = 0; i < count; ++i)
            space->appendOdDbEntity(entity(i).get());
    }

    OdDbDatabase const& database() const { return *m_database; }

private:
    OdDbEntityPtr entity(int number)
    {
        switch (number % 10) {
        case 4: return circle();
        case 5: return arc();
        case 6: return text(number);
        case 7: return polyline();
        case 8: return pointEntity();
        case 9: return reference();
        default: return new OdDbLine(point(), point());
        }
    }
    OdDbEntityPtr circle()
    {
        OdSmartPtr<OdDbCircle> const entity = new OdDbCircle;
        entity->setCenter(point());
        entity->setRadius(m_radius(m_random));
        return entity;
    }
    OdDbEntityPtr arc()
    {
        OdSmartPtr<OdDbArc> const entity = new OdDbArc;
        entity->setCenter(point());
        entity->setRadius(m_radius(m_random));
        entity->setEndAngle(1.5);
        return entity;
    }
    OdDbEntityPtr text(int number)
    {
        OdSmartPtr<OdDbText> const entity = new OdDbText;
        entity->setPosition(point());
        entity->setTextString(odFormat(L"Text %d", number));
        return entity;
    }
    OdDbEntityPtr polyline()
    {
        OdSmartPtr<OdDbPolyline> const entity = new OdDbPolyline;
        for (int i = 0; i < 5; ++i)
            entity->addVertexAt(i, {coordinate(), coordinate()});
        return entity;
    }
    OdDbEntityPtr pointEntity()
    {
        OdSmartPtr<OdDbPoint> const entity = new OdDbPoint;
        entity->setPosition(point());
        return entity;
    }
    OdDbEntityPtr reference()
    {
        OdSmartPtr<OdDbBlockReference> const entity = new OdDbBlockReference;
        entity->setBlockTableRecord(m_block);
        entity->setPosition(point());
        return entity;
    }
    double coordinate() { return m_coordinate(m_random); }
    OdGePoint3d point() { return {coordinate(), coordinate(), 0}; }

    OdDbDatabasePtr m_database;
    OdDbObjectId m_block;
    std::mt19937 m_random{12345};
    std::uniform_real_distribution<> m_coordinate{-1e4, 1e4};
    std::uniform_real_distribution<> m_radius{0.1, 50.0};
};

class TemporaryFile
{
public:
    TemporaryFile()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "bench-dxf-XXXXXX").string();
        int const file = ::mkstemp(pattern.data());
        if (file < 0)
            throw std::runtime_error("cannot make a temporary file");
        m_path = pattern;
    }
    ~TemporaryFile() { std::filesystem::remove(m_path); }
    OdString path() const { return OdString::fromUtf8(m_path.string()); }
    std::int64_t size() const { return static_cast<std::int64_t>(std::filesystem::file_size(m_path)); }

private:
    std::filesystem::path m_path;
};

constexpr dxf::FileFormat kText{};
constexpr dxf::FileFormat kBinary{dxf::kCurrentRelease, true};

void openDrawing(benchmark::State& state, dxf::FileFormat format)
{
    TemporaryFile const file;
    dxf::writeFile(MixedDrawing(static_cast<int>(state.range(0))).database(), file.path(), format);
    for (auto _ : state)
        benchmark::DoNotOptimize(sumOfPlaces(*dxf::readFile(file.path())));
    state.SetBytesProcessed(state.iterations() * file.size());
}

void saveDrawing(benchmark::State& state, dxf::FileFormat format)
{
    TemporaryFile const file;
    MixedDrawing const drawing(static_cast<int>(state.range(0)));
    for (auto _ : state)
        dxf::writeFile(drawing.database(), file.path(), format);
    state.SetBytesProcessed(state.iterations() * file.size());
}

BENCHMARK_CAPTURE(openDrawing, text, kText)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openDrawing, binary, kBinary)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveDrawing, text, kText)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveDrawing, binary, kBinary)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
