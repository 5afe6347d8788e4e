// Measures single procedures.
#include <benchmark/benchmark.h>

#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/lat_long.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "platform/headless/headless.h"
#include "sites/database/site_line.h"
#include "sites/listing/fast_listing.h"
#include "sites/listing/listing_row.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

struct Bench {
  HeadlessPlatform platform;
  Workspace w{platform};
};

// Goes through places all over Great Britain, so that the processor cannot predict every branch.
struct Places {
  double lat = 50.2, lon = -5.3;
  void Advance() {
    lat += 0.0371;
    lon += 0.0293;
    if (lat > 58) lat -= 7.9;
    if (lon > 1.2) lon -= 6.6;
  }
};

void GridToWgs84(benchmark::State& state) {
  double easting = 200000, northing = 100000, lat = 0, lon = 0;
  for (auto _ : state) {
    easting = easting > 600000 ? 200000 : easting + 4391;
    northing = northing > 900000 ? 100000 : northing + 7717;
    GridToWGS84(easting, northing, lat, lon);
    benchmark::DoNotOptimize(lat + lon);
  }
}
BENCHMARK(GridToWgs84);

void Wgs84ToGrid(benchmark::State& state) {
  Places places;
  double easting = 0, northing = 0;
  for (auto _ : state) {
    places.Advance();
    WGS84ToGrid(places.lat, places.lon, easting, northing);
    benchmark::DoNotOptimize(easting + northing);
  }
}
BENCHMARK(Wgs84ToGrid);

void GridReferenceToPlace(benchmark::State& state) {
  Bench bench;
  const std::string references[] = {"SU12345678", "NT0066", "TQ3080012345", "HU396753"};
  std::size_t i = 0;
  for (auto _ : state) DecodeNGR(bench.w, references[i++ % 4], bench.w.Lat, bench.w.Lon);
}
BENCHMARK(GridReferenceToPlace);

void PlaceToGridReference(benchmark::State& state) {
  Bench bench;
  Places places;
  bench.w.Resolution = 0.01;
  std::string ngr;
  for (auto _ : state) {
    places.Advance();
    GenNGR(bench.w, places.lat, places.lon, ngr);
  }
}
BENCHMARK(PlaceToGridReference);

void LocatorToPlace(benchmark::State& state) {
  Bench bench;
  const std::string locators[] = {"IO91WM", "JO01CA55", "IO84QM33XA", "IO75AA"};
  std::size_t i = 0;
  for (auto _ : state) DecodeLocator(bench.w, locators[i++ % 4], bench.w.Lat, bench.w.Lon);
}
BENCHMARK(LocatorToPlace);

void PlaceToLocator(benchmark::State& state) {
  Places places;
  std::string lc;
  for (auto _ : state) {
    places.Advance();
    GenLocator(places.lat, places.lon, lc);
    benchmark::DoNotOptimize(lc.data());
  }
}
BENCHMARK(PlaceToLocator);

void LatLongText(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    std::string text = "51\xB0 30'15.5\"N, 1\xB0 15'30\"W";
    ParseLatLong(bench.w, text);
  }
}
BENCHMARK(LatLongText);

void ShownLatLong(benchmark::State& state) {
  Bench bench;
  bench.w.LLFormat = static_cast<double>(state.range(0));
  bench.w.Lat = 51.518836;
  bench.w.Lon = -0.128997;
  for (auto _ : state) ShowLatLong(bench.w);
}
BENCHMARK(ShownLatLong)->DenseRange(0, 2);

void DistanceAndBearing(benchmark::State& state) {
  Bench bench;
  Places places;
  bench.w.BaseLat = 51.5;
  bench.w.BaseLong = -1.25;
  bench.w.Resolution = 0.01;
  for (auto _ : state) {
    places.Advance();
    bench.w.Lat = places.lat;
    bench.w.Lon = places.lon;
    DistBear(bench.w);
  }
}
BENCHMARK(DistanceAndBearing);

void NumberUnderPicture(benchmark::State& state) {
  double number = 123.456;
  for (auto _ : state) {
    number = number > 900 ? 1.05 : number + 0.731;
    benchmark::DoNotOptimize(FormatPicture(number, "####0.0").data());
  }
}
BENCHMARK(NumberUnderPicture);

// Records of two squares, in turn.
struct Records {
  std::vector<std::string> lines;
  std::size_t next = 0;

  Records() {
    for (int i = 0; i < 1000; ++i) {
      const std::string number = std::to_string(1000 + i * 7919 % 9000);
      lines.push_back("Hill " + number + "~SU" + number + number + "~a remark");
      lines.push_back("Hill " + number + "~IO91" + CharOf(65 + i % 24) + "M" + number.substr(2));
    }
  }
  std::string_view Next() { return lines[next++ % lines.size()]; }
};

void PlainRow(benchmark::State& state) {
  Bench bench;
  bench.w.BaseLat = 52.5;
  Records records;
  SiteRecord record;
  Columns columns;
  std::string row;
  const Limits limits = LimitsOf(bench.w.Tarnwick);
  for (auto _ : state) {
    row.clear();
    if (!ReadRecord(records.Next(), record) ||
        !AppendExactRow(bench.w, record, limits, columns, row))
      state.SkipWithError("no row");
    benchmark::DoNotOptimize(row.data());
  }
}
BENCHMARK(PlainRow);

void AcceleratedRow(benchmark::State& state) {
  Bench bench;
  bench.w.BaseLat = 52.5;
  Records records;
  SiteRecord record;
  std::string row;
  const Limits limits = LimitsOf(bench.w.Tarnwick);
  ListingAccelerator fast{limits, HomeStationAt(bench.w.BaseLat, bench.w.BaseLong)};
  for (auto _ : state) {
    row.clear();
    if (!ReadRecord(records.Next(), record)) state.SkipWithError("no record");
    benchmark::DoNotOptimize(TryFastRow(fast, record, row));
  }
}
BENCHMARK(AcceleratedRow);

void TypedPlace(benchmark::State& state) {
  Bench bench;
  const std::string places[] = {"SU12345678", "IO91WM", "51 30.5N 1 15.25W"};
  std::size_t i = 0;
  for (auto _ : state) {
    bench.w.Tarnwick.InputText.text = places[i++ % 3];
    FindIt_Click(bench.w);
  }
}
BENCHMARK(TypedPlace);

}  // namespace

BENCHMARK_MAIN();
