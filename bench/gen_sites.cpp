// gen_sites RECORDS FILE: writes a site database made by a seeded generator. Sixty in a hundred
// records contain a grid reference, the others a locator inside the National Grid; CR LF ends the
// lines and the end marker the file. A smaller file is the beginning of a larger one. No record
// contains the words beacon, needle and zqxjvk.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kSquares[] = {
    "HP", "HT", "HU", "HW", "HX", "HY", "HZ", "NA", "NB", "NC", "ND", "NF", "NG", "NH",
    "NJ", "NK", "NL", "NM", "NN", "NO", "NR", "NS", "NT", "NU", "NW", "NX", "NY", "NZ",
    "OV", "SC", "SD", "SE", "SH", "SJ", "SK", "SM", "SN", "SO", "SP", "SR", "SS", "ST",
    "SU", "SV", "SW", "SX", "SY", "SZ", "TA", "TF", "TG", "TL", "TM", "TQ", "TR", "TV"};
constexpr std::string_view kNameWords[] = {
    "Alpha",  "Barrow", "Birch", "Black", "Bracken", "Broad", "Castle", "Cold",   "Copper", "Crag",
    "Dale",   "Deer",   "East",  "Fell",  "Fern",    "Ford",  "Great",  "Green",  "Grey",   "Hare",
    "Heath",  "High",   "Holm",  "Hope",  "Kings",   "Lady",  "Lang",   "Little", "Lodge",  "Long",
    "Low",    "Mast",   "Mill",  "Moel",  "Moor",    "Mount", "Mynydd", "Nab",    "New",    "North",
    "Oak",    "Old",    "Over",  "Pen",   "Pike",    "Raven", "Red",    "Ridge",  "Rigg",   "Rough",
    "Saddle", "Scar",   "Sgurr", "Sheep", "Shining", "South", "Stone",  "Stony",  "Swan",   "Tarn",
    "Thorn",  "Top",    "Tower", "Upper", "Wether",  "West",  "White",  "Whin",   "Wind",   "Wold"};
constexpr std::string_view kRemarks[] = {"hilltop",
                                         "mast",
                                         "access by the farm track",
                                         "parking for two cars",
                                         "gate locked after dusk",
                                         "bog",
                                         "good takeoff to the south",
                                         "power lines nearby",
                                         "trig point",
                                         "TV relay",
                                         "cattle",
                                         "no phone signal",
                                         "noise from the wind farm",
                                         "ask at the cottage",
                                         "summit cairn",
                                         "steep last half mile",
                                         "50 MHz",
                                         "144 MHz",
                                         "432 MHz",
                                         "1296 MHz",
                                         "10 GHz",
                                         "used in the May contest",
                                         "portable",
                                         "repeater",
                                         "in the lee of the wood",
                                         "snow in winter",
                                         "ford may flood",
                                         "clear to the north and east",
                                         "lay-by",
                                         "Mr. Smith's field"};

// splitmix64; source: S. Vigna, public domain.
std::uint64_t Random() {
  static std::uint64_t state = 20240229;
  std::uint64_t z = (state += 0x9E3779B97F4A7C15);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
  return z ^ (z >> 31);
}

std::size_t Below(std::uint64_t limit) {
  return ((Random() >> 32) * limit) >> 32;
}

double Unit() {
  return static_cast<double>(Random() >> 11) * 0x1p-53;
}

template <std::size_t count>
std::string_view OneOf(const std::string_view (&texts)[count]) {
  return texts[Below(count)];
}

void AppendName(std::string& line) {
  const std::size_t length = line.size() + 10 + Below(21);
  do {
    if (!line.empty()) line += ' ';
    line += OneOf(kNameWords);
  } while (line.size() < length);
  line.resize(length);
  if (line.back() == ' ') line.back() = 's';
}

void AppendGridReference(std::string& line) {
  line += OneOf(kSquares);
  const std::size_t digits = 3 + Below(3);
  const std::uint64_t limit = digits == 3 ? 1000 : digits == 4 ? 10000 : 100000;
  for (int half = 0; half < 2; ++half) {
    const std::string number = std::to_string(Below(limit));
    line.append(digits - number.size(), '0').append(number);
  }
}

void AppendLocator(std::string& line) {
  std::string locator(10, ' ');
  const auto put = [&locator](double axis, std::size_t at) {
    const int steps[] = {10, 1, 24, 240, 5760};
    const int tens = static_cast<int>(axis / 10);
    double rest = axis - 10 * tens;
    locator[at] = static_cast<char>('A' + tens);
    for (std::size_t i = 1; i < 5; ++i) {
      const int count = static_cast<int>(rest * steps[i]);
      rest -= static_cast<double>(count) / steps[i];
      locator[at + 2 * i] = static_cast<char>((i % 2 == 1 ? '0' : 'A') + count);
    }
  };
  const double lat = 50.1 + 8.3 * Unit();
  const double lon = -5.4 + 6.8 * Unit();
  put((lon + 180) / 2, 0);
  put(lat + 90, 1);
  line.append(locator, 0, 6 + 2 * Below(3));
}

void AppendRemarks(std::string& line) {
  const std::size_t start = line.size();
  const std::size_t length = start + Below(61);
  while (line.size() < length) {
    if (line.size() != start) line += Below(4) != 0 ? ' ' : ',';
    line += OneOf(kRemarks);
  }
  line.resize(length);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  std::FILE* file = std::fopen(arguments[2], "wb");
  if (file == nullptr) return 1;
  std::string line;
  for (long record = std::atol(arguments[1]); record > 0; --record) {
    line.clear();
    AppendName(line);
    line += '~';
    Below(100) < 60 ? AppendGridReference(line) : AppendLocator(line);
    line += '~';
    AppendRemarks(line);
    line += "\r\n";
    std::fwrite(line.data(), 1, line.size(), file);
  }
  std::fputs("ENDENDEND\r\n", file);
  return std::fclose(file) == 0 ? 0 : 1;
}
