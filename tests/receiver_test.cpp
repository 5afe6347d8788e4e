// The receiver under streams: tests/receiver_logs, and what no good line would send.
//
// Beside each NAME.nmea, as it came over the line, stands NAME.expected: a line for each RMC in it,
// in order, with what the input box shows and the place after it if the sentence is used:
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
    platform.driveC = "/nonexistent";
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

// A log, and what a line lets through of it, told by places in the log alone: up to 128 characters
// are taken once 64 wait, and a carriage return among them ends what was gathered.
struct Line {
  std::string log;
  std::vector<std::string> sentences;  // what is expected of each RMC
  std::size_t taken = 0, gatheredFrom = 0;
  std::string box = "nothing", place = "999.000000 999.000000";

  explicit Line(std::filesystem::path file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    log = bytes.str();
    std::ifstream expected(file.replace_extension(".expected"));
    for (std::string sentence; std::getline(expected, sentence);)
      if (sentence.front() != '#') sentences.push_back(sentence);
  }
  void Arrive(std::size_t arrived) {
    while (arrived >= taken + 64) {
      const std::size_t from = taken;
      taken = std::min(arrived, taken + 128);
      if (log.find('\r', from) >= taken) continue;
      const std::size_t at = log.find("RMC", gatheredFrom);
      if (at < taken && taken - at >= 45) Use(at);
      gatheredFrom = taken;
    }
  }
  void Use(std::size_t sentence) {
    std::size_t before = 0;
    for (std::size_t at = 0; (at = log.find("RMC", at)) < sentence; ++at) ++before;
    const std::size_t bar = sentences.at(before).find(" | ");
    box = sentences[before].substr(0, bar);
    if (sentences[before].substr(bar) != " | =") place = sentences[before].substr(bar + 3);
  }
};

TEST(Receiver, ReplaysTheLogsHoweverTheyArrive) {
  for (const char* name :
       {"far_places", "line_feeds", "no_fix", "noise", "one_hz", "ten_hz", "two_in_a_burst"}) {
    for (std::size_t chunk = 1; chunk < 1'000'000; chunk += chunk < 130 ? 1 : 10 * chunk) {
      Line line(std::string(TARNWICK_RECEIVER_LOGS) + "/" + name + ".nmea");
      Program program;
      for (std::size_t at = 0; at < line.log.size(); at += chunk) {
        program.Feed(line.log.substr(at, chunk));
        line.Arrive(std::min(line.log.size(), at + chunk));
        ASSERT_EQ(program.Box(), line.box) << name << " by " << chunk << " at " << at;
        ASSERT_EQ(program.Place(), line.place) << name << " by " << chunk << " at " << at;
        ASSERT_EQ(program.w.SetUpCom.RxBuffer,
                  line.log.substr(line.gatheredFrom, line.taken - line.gatheredFrom));
      }
      ASSERT_GE(line.taken + 64, line.log.size()) << name;
    }
  }
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
      {"45, of another sentence", pad + start + "\r\n$GP", kShown},
      {"a short first one hides a good second", pad + "RMC,\r" + kSentence,
       "A 4807.038 N 01131.000          [ \r$:GP:RM UTC ]"},
      {"68 characters end behind the E", longer + ",E,022.4\r",
       "48 07.038N 011 31." + zeros + "E [ 12:35:19 UTC ]"},
      {"68 characters end with the E", longer + "0,E,022.4\r", ""},
      {"cut in the longitude", pad + "\rRMC,123519.000,A,4807.0380000,N,01131.00000000", ""},
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
  stream.resize(stream.size() - program.platform.serial.waiting.size());
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
  program.Feed(std::string(128, '\r') + kSentence);
  EXPECT_EQ(program.Box(), kShown);
}

}  // namespace
