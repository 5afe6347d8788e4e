// The receiver: the receive buffer, the logs in tests/receiver_logs, and arbitrary streams.
//
// NAME.nmea is what a receiver sent. NAME.expected has a line for each RMC sentence in it, in
// order: what the input box shows and the place after it, if the sentence is used:
//   TEXT | LATITUDE LONGITUDE        in degrees; = for the place before
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "gps/real_time.h"
#include "platform/headless/headless.h"
#include "workspace/events/start_and_exit.h"

namespace {

// A program whose receiver has just been set up; without a site database.
struct Program {
  Program() {
    platform.files.emplace();
    platform.serial.ports = {9};
    platform.serial.onComm = [this] { SetUpCom::MSComm1_OnComm(w); };
    platform.StoreSetting("CPort", "CP", "COM9");
    Form_Load(w);
    SetUpCom::Command1_Click(w);
    w.Tarnwick.InputText.text = "nothing";
  }
  std::string Box() const { return w.Tarnwick.InputText.text; }
  std::string Place() const { return std::to_string(w.Lat) + " " + std::to_string(w.Lon); }
  void Feed(const std::string& characters) { ::Feed(platform.serial, characters); }

  HeadlessPlatform platform;
  Workspace w{platform};
};

using Used = std::vector<std::string>;

// What the program shows for each sentence that it uses of a stream which arrives in chunks:
//   TEXT | LATITUDE LONGITUDE
Used UsedOf(const std::string& stream, std::size_t chunk) {
  Program program;
  Used used;
  program.platform.serial.onComm = [&] {
    program.w.Tarnwick.InputText.text = "nothing";
    const std::string before = program.Place();
    SetUpCom::MSComm1_OnComm(program.w);
    if (program.Box() == "nothing") return;
    used.push_back(program.Box() + " | " + (program.Place() == before ? "=" : program.Place()));
  };
  for (std::size_t at = 0; at < stream.size(); at += chunk) program.Feed(stream.substr(at, chunk));
  return used;
}

struct Log {
  explicit Log(const std::string& name) {
    const std::filesystem::path file = std::string(TARNWICK_RECEIVER_LOGS) + "/" + name;
    std::ostringstream bytes;
    bytes << std::ifstream(file.string() + ".nmea", std::ios::binary).rdbuf();
    stream = bytes.str();
    std::ifstream lines(file.string() + ".expected");
    for (std::string line; std::getline(lines, line);)
      if (line.front() != '#') expected.push_back(line);
  }
  std::string stream;
  Used expected;  // for each RMC sentence, as if it were used
};

bool HasFix(const std::string& line) {
  return line.substr(line.size() - 2) != " =";
}

// Shows every sentence as expected, in order, and the same ones however the characters arrive. Of
// the sentences with a fix the lone receivers lose one in twenty at most.
TEST(Receiver, ReplaysTheLogsHoweverTheyArrive) {
  const struct {
    const char* name;
    bool countsForShare;  // not two receivers, lines without a carriage return, or noise
  } logs[] = {{"far_places", true},     {"line_feeds", false}, {"no_fix", true},
              {"noise", false},         {"one_hz", true},      {"ten_hz", true},
              {"two_in_a_burst", false}};
  std::ptrdiff_t fixes = 0;
  std::ptrdiff_t fixesUsed = 0;
  for (const auto& row : logs) {
    const Log log(row.name);
    const Used used = UsedOf(log.stream, 1);
    auto next = log.expected.begin();
    for (const std::string& shown : used) {
      next = std::find(next, log.expected.end(), shown);
      ASSERT_NE(next, log.expected.end()) << row.name << ": " << shown;
      ++next;
    }
    for (const std::size_t chunk : {2U, 7U, 8U, 63U, 64U, 65U, 127U, 128U, 129U, 1000U, 1'000'000U})
      EXPECT_EQ(UsedOf(log.stream, chunk), used) << row.name << " in chunks of " << chunk;
    const auto inLog = std::count_if(log.expected.begin(), log.expected.end(), HasFix);
    const auto inUse = std::count_if(used.begin(), used.end(), HasFix);
    std::cout << row.name << ": " << inUse << " of " << inLog << " fixes used\n";
    if (!row.countsForShare) continue;
    fixes += inLog;
    fixesUsed += inUse;
  }
  EXPECT_GE(static_cast<double>(fixesUsed), 0.95 * static_cast<double>(fixes));
}

const std::string kSentence =
    "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
const std::string kShown = "48 07.038N 011 31.000E [ 12:35:19 UTC ]";

TEST(Receiver, TakesTheFirstSentenceOf45CharactersAndNoOther) {
  const std::string pad(64, '.'), zeros(35, '0');
  const std::string start = "RMC,123519,A,4807.038,N,01131.000,E,022.";  // 40 characters
  const std::string longer = "RMC,123519,A,4807.038,N,01131." + zeros;   // 65
  const struct {
    const char* reason;
    std::string stream;
    std::string box;
  } rows[] = {
      {"44 characters with the carriage return", pad + start + "...\r", "nothing"},
      {"45", pad + start + "....\r", kShown},
      {"45 with the next sentence", start + "\r\n$GPGGA,123519,4807.038\r", kShown},
      {"a short first one hides a good second", "RMC,\r" + kSentence,
       "A 4807.038 N 01131.000          [ \r$:GP:RM UTC ]"},
      {"68 characters end behind the E", longer + ",E,022.4\r",
       "48 07.038N 011 31." + zeros + "E [ 12:35:19 UTC ]"},
      {"68 characters end with the E", longer + "0,E,022.4\r", ""},
      {"the full buffer ends in the longitude",
       std::string(40, '.') + "\r" + std::string(41, '.') +
           "RMC,123519.000,A,4807.0380000,N,01131.00000000",
       ""},
  };
  for (const auto& row : rows) {
    Program program;
    program.Feed(row.stream);
    EXPECT_EQ(program.Box(), row.box) << row.reason;
  }
}

// Neither the lack of a carriage return nor a pause empties RxBuffer.
TEST(Receiver, KeepsTheNewestCharactersThroughAPause) {
  Program program;
  std::string stream;
  for (int i = 0; stream.size() < 99'968; ++i) stream += std::to_string(i) + ",";
  program.Feed(stream);
  stream.resize(stream.size() - program.platform.serial.buffer.size());
  UseNMEA_Click(program.w);
  program.Feed(kSentence + kSentence);  // is lost
  SetUpCom::Command1_Click(program.w);
  EXPECT_EQ(program.w.SetUpCom.RxBuffer, stream.substr(stream.size() - 32'767));
  program.Feed(kSentence);
  EXPECT_EQ(program.Box(), kShown);
}

// Sentences with characters changed, lost and put in, and plain noise.
TEST(Receiver, StandsEveryStream) {
  const std::string likely = "RMC,,,,\r0123456789.NSEWVA*$'\" \xB0";
  Program program;
  std::mt19937 random(20);
  const auto below = [&](std::size_t n) { return random() % n; };
  const auto anything = [&] { return static_cast<char>(below(256)); };
  for (int i = 0; i < 40'000; ++i) {
    std::string burst = kSentence;
    if (i % 8 == 0) std::generate(burst.begin(), burst.end(), anything);
    for (std::size_t k = below(9); k > 0; --k)
      burst.replace(below(burst.size()), below(3), below(4),
                    below(3) != 0 ? likely[below(likely.size())] : anything());
    program.Feed(burst);
    ASSERT_TRUE(std::isfinite(program.w.Lat) && std::isfinite(program.w.Lon)) << burst;
    for (const TextBox* box : {&program.w.Tarnwick.InputText, &program.w.Tarnwick.LLText,
                               &program.w.Tarnwick.LocText, &program.w.Tarnwick.NGRText})
      ASSERT_LT(box->text.size(), 400U) << burst;
  }
  program.w.Tarnwick.InputText.text = "nothing";
  for (int i = 0; i < 3; ++i) program.Feed(kSentence);
  EXPECT_EQ(program.Box(), kShown) << "the third good sentence at the latest is used";
}

TEST(Receiver, ReadsSpeedsAsDigitsWithBlanksAround) {
  const struct {
    const char* text;
    int speed;  // 0 for malformed
  } rows[] = {{"4800", 4800}, {" 4800 ", 4800}, {"115200", 115200}, {"+4800", 0}, {"-4800", 0},
              {"0", 0},       {"", 0},          {" ", 0},           {"48.5", 0},  {"48 00", 0},
              {"fast", 0},    {"4800,n", 0},    {"99999999999", 0}};
  for (const auto& row : rows) {
    Program program;
    UseNMEA_Click(program.w);  // closes the port
    program.platform.serial.openSpeed = 0;
    program.w.SetUpCom.Baud.text = row.text;
    SetUpCom::Command1_Click(program.w);
    EXPECT_EQ(program.platform.serial.openSpeed, row.speed) << row.text;
    EXPECT_EQ(program.w.SetUpCom.Text1.text, row.speed == 0 ? "COM PORT FAIL" : "") << row.text;
  }
}

}  // namespace
