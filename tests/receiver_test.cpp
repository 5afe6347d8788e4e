// The receiver: the receive buffer, lines of receivers, and arbitrary streams.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "gps/real_time.h"
#include "platform/headless/headless.h"
#include "workspace/events/start_and_exit.h"

namespace {

// A program whose receiver has just been set up. It has no site database.
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

// What the program shows for each sentence that it uses from a stream that arrives in chunks:
//   TEXT | LATITUDE LONGITUDE        in degrees; = if the place is the previous one
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

const std::string kSentence =
    "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
const std::string kShown = "48 07.038N 011 31.000E [ 12:35:19 UTC ]";

// Recorded lines, ended by CR LF. The size of the chunks in which they arrive changes nothing.
TEST(Receiver, UsesTheSentencesOfALog) {
  const struct {
    const char* reason;
    std::string lines;  // ended by \n
    Used used;
    const char* lineEnd = "\r\n";
  } logs[] = {
      {"a walk, over a full minute",
       "$GPGGA,123559,5128.722,N,00027.606,W,1,08,0.9,545.4,M,46.9,M,,*5F\n"
       "$GPRMC,123559,A,5128.722,N,00027.606,W,022.4,084.4,230394,003.1,W*72\n"
       "$GPVTG,084.4,T,087.5,M,022.4,N,041.5,K*48\n"
       "$GPGSV,2,1,08,11,06,041,39,26,04,121,43,23,32,233,40,27,18,028,49*73\n"
       "$GPRMC,123600,A,5128.746,N,00027.588,W,022.4,084.4,230394,003.1,W*7A\n",
       {"51 28.722N 000 27.606W [ 12:35:59 UTC ] | 51.478700 -0.460100",
        "51 28.746N 000 27.588W [ 12:36:00 UTC ] | 51.479100 -0.459800"}},
      {"two positions a second",
       "$GNRMC,091414.00,A,5649.08600,N,00500.21600,W,1.42,71.3,160624,,,A*5E\n"
       "$GLGSV,1,1,04,03,53,238,31,25,84,313,22,14,30,191,20,23,51,142,47*69\n"
       "$GNRMC,091414.10,A,5649.08660,N,00500.21480,W,1.42,71.3,160624,,,A*53\n",
       {"56 49.08600N 005 00.21600W [ 09:14:14 UTC ] | 56.818100 -5.003600",
        "56 49.08660N 005 00.21480W [ 09:14:14 UTC ] | 56.818110 -5.003580"}},
      {"south and east, the date line, the pole; degrees 00 with less than 10 minutes read as 0, "
       "so the text is taken for the name of a site",
       "$GNRMC,235940.00,A,3351.5000,S,15112.6000,E,022.4,084.4,230394,003.1,W*5E\n"
       "$GARMC,235949.63,A,6530.0000,N,18000.0000,E,022.4,084.4,230394,003.1,W*59\n"
       "$INRMC,235951.77,A,9000.0000,S,00030.0000,E,022.4,084.4,230394,003.1,W*45\n"
       "$GPRMC,235955,A,0005.000,N,00930.000,E,000.0,360.0,130998,011.3,E*78\n"
       "$GPRMC,235958,A,0010.000,N,00000.000,E,022.4,084.4,230394,003.1,W*64\n",
       {"33 51.5000S 151 12.6000E [ 23:59:40 UTC ] | -33.858333 151.210000",
        "65 30.0000N 180 00.0000E [ 23:59:49 UTC ] | 65.500000 180.000000",
        "90 00.0000S 000 30.0000E [ 23:59:51 UTC ] | -90.000000 0.500000",
        "00 05.000N 009 30.000E          [ 23:59:55 UTC ] | =",
        "00 10.000N 000 00.000E [ 23:59:58 UTC ] | 0.166667 0.000000"}},
      {"no place: empty fields repeat the status before them; a sentence of 35 characters counts "
       "only with others behind it; a warning with a place counts",
       "$GPRMC,123516,V,,,,,000.0,000.0,230394,003.1,W,N*25\n"
       "$GPGGA,123516,,,,,0,00,99.99,,,,,,*4A\n"
       "$GPRMC,123517.00,V,,,,,,,230394,,,N*71\n"
       "$GPRMC,123518.00,V,,,,,,,230394,,,N*7E\n"
       "$GPRMC,123522,V,4807.050,N,01131.002,E,022.4,084.4,230394,003.1,W*79\n"
       "$GPRMC,123523.00,V,,,,,,,230394,,,N*76\n"
       "$GPTXT,01,01,02,ANTSTATUS=OPEN*2B\n",
       {"V V V V          [ 12:35:16 UTC ] | =", "V V V V          [ 12:35:17 UTC ] | =",
        "48 07.050N 011 31.002E [ 12:35:22 UTC ] | 48.117500 11.516700",
        "V V V V          [ 12:35:23 UTC ] | ="}},
      {"noise between sentences, one with a wrong checksum",
       "\xF7\x08$GPRMC,060000,A,5706.000,N,00206.000,W,022.4,084.4,230394,003.1,W*70\n"
       "Q\xFF\x1D:\x80"
       "RM\x01GA,,,\n"
       "U\x03\xE9$GPRMC,060001,A,5707.200,N,00207.200,W,022.4,084.4,230394,003.1,W*00\n",
       {"57 06.000N 002 06.000W [ 06:00:00 UTC ] | 57.100000 -2.100000",
        "57 07.200N 002 07.200W [ 06:00:01 UTC ] | 57.120000 -2.120000"}},
      {"no carriage return: none is used",
       kSentence.substr(0, 68) + "\n" + kSentence.substr(0, 68) + "\n" + kSentence.substr(0, 68) +
           "\n",
       {},
       "\n"},
  };
  for (const auto& log : logs) {
    std::string stream;
    for (const char c : log.lines) stream += c == '\n' ? log.lineEnd : std::string(1, c);
    for (const std::size_t chunk : {1U, 2U, 7U, 63U, 64U, 65U, 127U, 128U, 129U, 1'000'000U})
      EXPECT_EQ(UsedOf(stream, chunk), log.used) << log.reason << ", in chunks of " << chunk;
  }
}

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

// Earlier characters, here an RMC without a carriage return, can cost at most two good sentences.
TEST(Receiver, UsesTheThirdGoodSentence) {
  Program program;
  program.Feed(std::string(59, '.') + "RMC,");
  for (const bool isUsed : {false, false, true}) {
    program.Feed(kSentence);
    EXPECT_EQ(program.Box() == kShown, isUsed) << program.Box();
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
  program.Feed(kSentence + kSentence);  // lost: the port is closed
  SetUpCom::Command1_Click(program.w);
  EXPECT_EQ(program.w.SetUpCom.RxBuffer, stream.substr(stream.size() - 32'767));
  program.Feed(kSentence);
  EXPECT_EQ(program.Box(), kShown);
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
