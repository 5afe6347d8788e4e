// Tables of typed texts and of the places, layouts, distances and bearings that they result in.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "geo/lat_long.h"
#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/record/workspace.h"

namespace {

// A program whose files are in memory; there are none at first. Texts of the tests are UTF-8.
class Commands : public testing::Test {
 protected:
  Commands() { platform.files.emplace(); }
  void Use(std::string_view text) {
    w.Tarnwick.InputText.text = FromUtf8(text);
    FindIt_Click(w);
  }
  std::string LatLong() const { return ToUtf8(w.Tarnwick.LLText.text); }

  HeadlessPlatform platform;
  Workspace w{platform};
};

TEST_F(Commands, DecodesLocatorsAndGridReferences) {
  const MainWindow& main = w.Tarnwick;
  const struct {
    const char *typed, *shown;
  } rows[] = {
      // clang-format off
      // Missing characters count as 44MM: the place is the same, only the cell differs.
      {"IO91WM", "IO91WM | TQ30 82 | 51.518836N , 0.128997W | E: 529913 , N: 181650 | TQ38 | 5766m 4633m"},
      {"IO91WM44", "IO91WM44 | TQ299 816 | 51.518836N , 0.128997W | E: 529913 , N: 181650 | TQ28 | 577m 463m"},
      {"IO91WM44MM", "IO91WM44MM | TQ2991 8165 | 51.518836N , 0.128997W | E: 529913 , N: 181650 | TQ28 | 24m 19m"},
      // Characters after the tenth are ignored; blanks are removed.
      {"IO91WM44MMXX", "IO91WM44MMXX | TQ2991 8165 | 51.518836N , 0.128997W | E: 529913 , N: 181650 | TQ28 | 24m 19m"},
      {"io91 wm 00", "IO91WM00 | TQ276 797 | 51.502169N , 0.162330W | E: 527647 , N: 179738 | TQ27 | 577m 463m"},
      // The equator and the poles. Off the grid the metres and the square of the old place stay.
      {"JJ00AA", "JJ00AA |  | 0.018836N , 0.037670E | E: 527647 , N: 179738 | TQ27 | 9267m 4633m"},
      {"JJ00AA00AA", "JJ00AA00AA |  | 0.000086N , 0.000170E | E: 527647 , N: 179738 | TQ27 | 39m 19m"},
      {"AA00AA", "AA00AA |  | 89.981164S , 179.962330W | E: 527647 , N: 179738 | TQ27 | 3m 4633m"},
      {"RR99XX99XX", "RR99XX99XX |  | 89.999912N , 179.999823E | E: 527647 , N: 179738 | TQ27 | m 19m"},
      // Characters out of their range count by their code, beyond the poles too.
      {"ZZ99ZZ", "ZZ99ZZ |  | 170.060503N , 340.121003E | E: 527647 , N: 179738 | TQ27 | -9128m 4633m"},
      {"IO91WMAB", "IO91WMAB | TQ373 883 | 51.577169N , 0.020663W | E: 537254 , N: 188334 | TQ38 | 576m 463m"},

      {"SU1234", "IO91CC05JF | SU1234 | 51.105176N , 1.829981W | E: 412000 , N: 134000 | SU13 | 1000m 1000m"},
      {"su12 34 56", "IO91CF00XG | SU123456 | 51.209476N , 1.825303W | E: 412300 , N: 145600 | SU14 | 100m 100m"},
      {"TQ30208000", "IO91WM40WW | TQ30208000 | 51.503945N , 0.125474W | E: 530200 , N: 180000 | TQ38 | 10m 10m"},
      {"TG5140913177", "JO02UP57WV | TG5140913177 | 52.657977N , 1.716038E | E: 651409 , N: 313177 | TG51 | 1m 1m"},
      // Corners of the grid, and references off it. I counts as J.
      {"HP600100", "IP90NS14WK | HP600100 | 60.768493N , 0.900501W | E: 460000 , N: 1210000 | HP61 | 100m 100m"},
      {"JM0000", "JP00TP81OX | JM0000 | 60.633306N , 1.655103E | E: 600000 , N: 1200000 | JM00 | 1000m 1000m"},
      {"SV9000", "IN69UT26PT | SV9000 | 49.819986N , 6.311376W | E: 90000 , N:  | SV90 | 1000m 1000m"},
      {"HI1234", "IP81DV80XF | HI1234 | 61.875966N , 3.675323W | E: 312000 , N: 1334000 | HI13 | 1000m 1000m"},
      {"HJ1234", "IP81DV80XF | HJ1234 | 61.875966N , 3.675323W | E: 312000 , N: 1334000 | HJ13 | 1000m 1000m"},
      {"AA1234", "HP44GG07CT | AA1234 | 64.282546N , 31.499096W | E: -988000 , N: 1934000 | AA13 | 1000m 1000m"},
      // Odd numbers of digits: halves take 2, 4 and 4 digits.
      {"SU12345", "IO91CC05JF | SU12345 | 51.105176N , 1.829981W | E: 412000 , N: 134000 | SU14 | 1000m 1000m"},
      {"SU1234567", "IO90CU04UC | SU1234567 | 50.850419N , 1.826077W | E: 412340 , N: 105670 | SU14 | 10m 10m"},
      {"SU123456789", "IO91CH14BJ | SU123456789 | 51.310004N , 1.824348W | E: 412340 , N: 156780 | SU16 | 10m 10m"},
      // More digits than a metre needs: the corner of the 100 km square.
      {"SU123456789012", "IO80XT91UV | SU123456789012 | 50.799561N , 2.001367W | E: 400000 , N: 100000 | SU17 | 100000m 100000m"},
      // A half without a number reads as 0.
      {"SU1234AB", "IO90CT02SR | SU1234AB | 50.803030N , 1.826821W | E: 412300 , N: 100400 | SU14 | 100m 100m"},
      // clang-format on
  };
  for (const auto& [typed, shown] : rows) {
    Use(typed);
    EXPECT_EQ(main.LocText.text + " | " + main.NGRText.text + " | " + LatLong() + " | " +
                  main.EastNorth.text + " | " + main.OSMap.caption + " | " + main.Xdim.caption +
                  " " + main.Ydim.caption,
              shown)
        << typed;
  }
}

TEST_F(Commands, DecodesLatitudesAndLongitudes) {
  const struct {
    const char *typed, *box, *latLong;
  } rows[] = {
      // clang-format off
      {"51.5N 1.25W", "51.5N 1.25W", "51.500000N , 1.250000W"},
      {"51.5 n 1.3 w", "51.5 N 1.3 W", "51.500000N , 1.300000W"},
      {"51 30 0 N 1 15 0 W", "51 30 0 N 1 15 0 W", "51.500000N , 1.250000W"},
      {"52°30'N 1°30'W", "52 30 N 1 30 W", "52.500000N , 1.500000W"},
      {"51°30'15''N, 1°15'30\"W", "51 30 15 N 1 15 30 W", "51.504167N , 1.258333W"},
      {"51 30.5N 1 15.25W", "51 30.5N 1 15.25W", "51.508333N , 1.254167W"},
      {"1 15 W 51 30 N", "1 15 W 51 30 N", "51.500000N , 1.250000W"},
      {"33.85S 151.2E", "33.85S 151.2E", "33.850000S , 151.200000E"},
      {"0 30N 1W", "0 30N 1W", "0.500000N , 1.000000W"},
      {"100N 200E", "100N 200E", "100.000000N , 200.000000E"},
      // As the receiver writes it: text after the second letter stays in the box and is ignored.
      {"51 30.1234N 001 20.5678W          [ 12:34:56 UTC ]",
       "51 30.1234N 001 20.5678W [ 12:34:56 UTC ]", "51.502057N , 1.342797W"},
      // A comma separates fields; it is no decimal point.
      {"51,5N 1,25W", "51 5N 1 25W", "51.083333N , 1.416667W"},
      // The sign of the degrees counts before minutes and is dropped without them.
      {"51N -1 30 E", "51N -1 30 E", "51.000000N , 0.500000W"},
      {"51 30 N -1.25E", "51 30 N -1.25E", "51.500000N , 1.250000E"},
      {"51 30 N -1.26 E", "51 30 N -1.26 E", "51.500000N , 1.260000W"},
      // Everything after the minutes is the seconds, here 1520.
      {"51 30 15 20N 1W", "51 30 15 20N 1W", "51.922222N , 1.000000W"},
      // The first N and the first E count, then the first S and the first W.
      {"51 30 N 1 20 WEST", "51 30 N 1 20 WEST", "51.500000N , 1.333333E"},
      {"52N 1W 2E", "52N 1W 2E", "52.000000N , 1.033333E"},
      // A text that starts with a number is never searched for as a site.
      {"1st street", "1ST STREET", "1.000000S , 0.000000E"},
      {"10NW 5", "10NW 5", "10.000000N , 0.000000E"},
      {"&H1F N W", "&H1F N W", "31.000000N , 0.000000E"},
      // An exponent; a tab is no separator.
      {"51D3N\t1W", "51D3N\t1W", "51000.000000N , 1.000000W"},
      // Without both hemisphere letters the box is emptied and the old place stays.
      {"51.5N", "", "51000.000000N , 1.000000W"},
      // clang-format on
  };
  for (const auto& [typed, box, latLong] : rows) {
    Use(typed);
    EXPECT_EQ(ToUtf8(w.Tarnwick.InputText.text), box) << typed;
    EXPECT_EQ(LatLong(), latLong) << typed;
  }
}

// Texts that are too short, have too few digits or letters at the places where a reference has
// them, or do not begin with a positive number.
TEST_F(Commands, TakesOtherTextsForNamesOfSites) {
  for (const char* text : {"IO91", "IO91W", "IO91W4", "SU123X", "su1 2345", "su 12 34 56", "1N1W",
                           "-1.5 51.5", "N51.5 W1.2", "00 05N 1W", "ab12 ", "ÁÁ1234", "Z[1234"}) {
    platform.events.clear();
    Use(text);
    EXPECT_EQ(platform.events, std::vector<std::string>{"MsgBox Site datbase not found"}) << text;
  }
}

TEST_F(Commands, ShowsLatitudeAndLongitudeInThreeLayouts) {
  const struct {
    const char *typed, *minutes, *seconds, *degrees;
  } rows[] = {
      // clang-format off
      {"51 30 15N 1 15 30W", "51° 30.2500' N , 1° 15.5000' W", "51° 30' 15.0'' N, 1° 15' 30.0'' W", "51.504167N , 1.258333W"},
      {"9.5S 9.5E", "9° 30.0000' S , 9° 30.0000' E", "9° 30' 00.0'' S, 9° 30' 00.0'' E", "9.500000S , 9.500000E"},
      {"100N 200E", "100° 00.0000' N , 200° 00.0000' E", "100° 00' 00.0'' N, 200° 00' 00.0'' E", "100.000000N , 200.000000E"},
      // Minutes and seconds that round up to 60 show as 60.
      {"33.85S 151.2E", "33° 51.0000' S , 151° 12.0000' E", "33° 51' 00.0'' S, 151° 11' 60.0'' E", "33.850000S , 151.200000E"},
      {"51.99999999N 2W", "51° 60.0000' N , 2° 00.0000' W", "51° 59' 60.0'' N, 2° 00' 00.0'' W", "52.000000N , 2.000000W"},
      // Seconds slightly below zero have no minus sign.
      {"51 30N 1 23W", "51° 30.0000' N , 1° 23.0000' W", "51° 30' 00.0'' N, 1° 23' 00.0'' W", "51.500000N , 1.383333W"},
      // clang-format on
  };
  for (const auto& row : rows) {
    Use(row.typed);
    for (const char* shown : {row.minutes, row.seconds, row.degrees}) {
      LLfmt_Click(w);
      EXPECT_EQ(LatLong(), shown) << row.typed;
    }
  }
}

TEST_F(Commands, ComputesDistanceAndBearings) {
  const PointingWindow& pointing = w.BearingCalc;
  const struct {
    const char *home, *place, *shown;  // km, bearing, back bearing, uncertainty
  } rows[] = {
      // clang-format off
      // One degree south and north, the same parallel east and west, the pole.
      {"51.5N 1.25W", "50.5N 1.25W", "111.20 | 180.0 | 0.0 | 0.001km 0.0 deg"},
      {"51.5N 1.25W", "52.5N 1.25W", "111.20 | 0.0 | 180.0 | 0.001km 0.0 deg"},
      {"51.5N 1.25W", "51.5N 0.25E", "103.834 | 89.4 | 270.6 | 0.001km 0.0 deg"},
      {"51.5N 1.25W", "51.5N 2.75W", "103.834 | 270.6 | 89.4 | 0.001km 0.0 deg"},
      {"51.5N 1.25W", "90N 0E", "4281.20 | 0.0 | 181.7 | 0.001km 0.0 deg"},
      // Due north and slightly west: the bearing is 360.0, not 0.0.
      {"51.5N 1.25W", "52.5N 1.25001W", "111.20 | 360.0 | 180.0 | 0.001km 0.0 deg"},
      // Less than a metre apart counts as the same place; above that the uncertainty is large.
      {"51.5N 1.25W", "51.500005N 1.25W", "0.001 | 0.0 | 0.0 | 0.00km 0.0 deg"},
      {"51.5N 1.25W", "51.50001N 1.25W", "0.001 | 0.0 | 180.0 | 0.001km 64.4 deg"},
      // These exact antipodes also count as the same place.
      {"51.5N 1.25W", "51.5S 178.75E", "0.00 | 0.0 | 0.0 | 0.00km 0.0 deg"},
      // On the equator the cosines of the bearings are 0.
      {"1E 0N", "11E 0N", "1112.00 | 90.0 | 270.0 | 0.001km 0.0 deg"},
      // Across the 180th meridian only the longitudes as numbers decide between east and west.
      {"0.1N 179.5E", "0.1N 180.5W", "0.00 | 0.0 | 0.0 | 0.00km 0.0 deg"},
      {"0.1N 179.5E", "0.1N 179.5W", "111.20 | 270.0 | 90.0 | 0.001km 0.0 deg"},
      // Coordinates far out of range.
      {"1N 1E", "9D999N 9D999W", "9396.586 | 344.3 | 105.4 | 0.001km 0.0 deg"},
      {"9D999N 9D999W", "SU12341E999", "2583.271 | 66.2 | 316.8 | 0.008km 0.0 deg"},
      // clang-format on
  };
  for (const auto& [home, place, shown] : rows) {
    Use(home);
    SetHome_Click(w);
    Use(place);
    EXPECT_EQ(pointing.DistText.text + " | " + pointing.BearText.text + " | " +
                  pointing.BackBearText.text + " | " + pointing.UncertText.text,
              shown)
        << home << " to " << place;
  }
}

}  // namespace
