// The four windows as plain data: every control with its caption or text, colours, tool tip and
// state, the initialisers being the state of a fresh window. The logic reads and writes the fields
// directly; the platform shows what differs from what it last showed. Setting a field runs no
// handler. Positions and sizes of windows are in twips, 1/1440 inch.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "workspace/entries.h"

// A colour of the screen.
struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Rgb&) const = default;
};

// The colours of a form that was given and of one that was worked out.
inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kRed{255, 0, 0};

// None: the platform's own colour.
using Colour = std::optional<Rgb>;

// A text on one line, or on many, that the user can edit unless it is read-only.
struct TextBox {
  std::string text{};
  Colour fore{};
  Colour back{};
  bool readOnly = false;  // to the user
  bool manyLines = false;
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const TextBox&) const = default;
};

// A caption.
struct Label {
  std::string caption{};
  Colour fore{};
  Colour back{};
  bool visible = true;
  bool operator==(const Label&) const = default;
};

// What a click presses.
struct Button {
  std::string caption{};  // & marks the letter of the access key
  Colour back{};
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const Button&) const = default;
};

// A caption with a tick.
struct CheckBox {
  std::string caption{};
  bool checked = false;
  bool enabled = true;
  bool visible = true;
  const char* tip = "";
  bool operator==(const CheckBox&) const = default;
};

// A text the user can type, with entries to choose it from.
struct ComboBox {
  std::string text{};
  std::vector<std::string> items{};
  bool enabled = true;
  bool visible = true;
  bool operator==(const ComboBox&) const = default;
};

// Entries of which one can be selected.
struct ListBox {
  Entries items{};
  int index = -1;   // of the selected entry, from 0; -1 if none
  int columns = 1;  // filled down one column and then the next
  bool visible = true;
  bool operator==(const ListBox&) const = default;
};

// An empty rectangle.
struct Frame {
  bool visible = true;
  bool operator==(const Frame&) const = default;
};

// One operation on a picture box, in the coordinates of the picture.
struct DrawOperation {
  enum class Kind { Line, Circle, PSet, Print } kind = Kind::Line;
  float x1 = 0, y1 = 0;  // start, centre or point
  float x2 = 0, y2 = 0;  // end of a line
  float radius = 0;      // of a circle
  Rgb colour{};
  std::string text{};  // printed with its top left corner at the point of the last PSet
  bool operator==(const DrawOperation&) const = default;
};

// A picture, as the list of what was drawn on it.
struct PictureBox {
  Colour back{};
  std::vector<DrawOperation> operations{};  // since the picture was last wiped
  bool visible = true;
  bool operator==(const PictureBox&) const = default;
};

// What every window has. Left and top place its frame.
struct Window {
  std::string caption{};
  float left = 0, top = 0, width = 0, height = 0;
  bool loaded = false;
  bool visible = false;
};

// Where the database is until another path was stored.
inline constexpr const char* kDefaultDatabase = "c:\\geog\\Sites.dat";

// The heights of the main window without and with the listing layout.
inline constexpr float kLookupHeight = 4700;
inline constexpr float kListingHeight = 6780;

// The tool tips that two controls share.
inline constexpr const char* kCalculatedTip =
    "If this appears in red, it is a calculated value whose accuracy depends on the input "
    "information";
inline constexpr const char* kMakeListTip = "Generate a listing of all sites from this Base";

// The main window.
struct MainWindow : Window {
  MainWindow()
      : Window{.caption = "Sites, Distances and Bearings", .width = 7410, .height = 6945} {}

  // clang-format off
  Label Label14{.caption = "From Site Database, Locator,  NGR or free format Lat / Long", .fore = Rgb{0, 128, 0}};
  Label Label2{.caption = "Input data", .fore = Rgb{192, 64, 0}};
  Label Label1{.caption = "Location of Site database", .fore = Rgb{128, 128, 128}};
  TextBox LocDatabase{.text = kDefaultDatabase, .tip = "Insert full path and filename for the site database.  eg. C:\\geog\\sites.dat"};
  TextBox InputText{.fore = Rgb{128, 128, 128}, .tip = "Enter  Part of sitename,  Locator (6 or 8 char) ,   NGR (8 or 10 char) or Free format  Lat / Long.   Also mask for Database lookup"};
  Label Label5{.caption = "Resolution", .fore = Rgb{0, 128, 128}};
  Label Xdim{.fore = Rgb{0, 128, 128}};
  Label Ydim{.fore = Rgb{0, 128, 128}};
  Frame Frame1;
  Button FindIt{.caption = "&Use This"};
  Button Lookup{.caption = "&Lookup Database", .tip = "Search Site Database file. Optionally enter any portion or name or search string into Input data box or make sure Input data is blank"};
  Label Label15{.caption = "Loc                                         NGR", .fore = Rgb{192, 64, 0}};
  TextBox LocText{.readOnly = true, .tip = kCalculatedTip};
  TextBox NGRText{.readOnly = true, .tip = kCalculatedTip};
  TextBox EastNorth{.fore = Rgb{0, 128, 0}, .readOnly = true};
  Button SetHome{.caption = "&Set as Home", .enabled = false, .tip = "Set this current site details as the base for distance and bearing calculation or printout"};
  Button GenList{.caption = "&Make a Listing File", .enabled = false, .tip = kMakeListTip};
  Button Gmap{.caption = "G-Maps", .tip = "Go to Google Maps for this site"};
  Button OSMap{.caption = "OS Map", .enabled = false, .tip = "OS Map JPG files must be stored in C:\\OS_Maps"};
  Button UseNMEA{.caption = "GPS", .tip = "Read NMEA Data from serial port.  (GPRMC Message only)"};
  Button LocSites{.caption = "List locals", .enabled = false, .tip = "Generate a list of sites within 20km of designated Home"};
  TextBox LLText{.readOnly = true};
  Button LLfmt{.caption = "L/L Format", .tip = "Toggle through Lat/Long formatting"};
  Label Label4{.caption = "WGS84", .fore = Rgb{0, 0, 192}};
  Label BaseLocLbl{.fore = Rgb{192, 0, 0}, .back = Rgb{255, 192, 255}};
  CheckBox SaveOnExit{.caption = "Save Base on Exit"};
  // The listing layout.
  Label Label10{.caption = "Restrict printout for distance / bearing limits, or part of site name", .fore = Rgb{192, 64, 0}, .visible = false};
  Label Label3{.caption = "Min Distance", .visible = false};
  TextBox MinDisttext{.text = "0", .visible = false};
  Label Label7{.caption = "Max Distance", .visible = false};
  TextBox MaxDistText{.text = "99999", .visible = false};
  Label Label8{.caption = "Bearing From", .visible = false};
  TextBox FromBearText{.text = "0", .visible = false, .tip = "Left most bearing of sector"};
  Label Label9{.caption = "through to  to bearing ", .visible = false};
  TextBox ToBearText{.text = "360", .visible = false, .tip = "Rightmost bearing for sector"};
  Button MakeList{.caption = "Generate the File", .back = Rgb{255, 192, 192}, .visible = false, .tip = kMakeListTip};
  Label Label13{.caption = "Search String"};
  TextBox Srchtext{.visible = false, .tip = "Restrict listed sites to only those containing this search string"};
  Label Label11{.caption = "List File name", .visible = false};
  TextBox ListFileName{.text = "c:\\geog\\SITELIST.TXT", .visible = false, .tip = "Insert full path and filename for the listing.  eg. C:\\geog\\SITELIST.TXT"};
  CheckBox ShowAll{.caption = "Show the results on screen", .checked = true, .tip = "Send distance and bering list to screen as well as to teh file specified"};
  // clang-format on

  Button MainWindow::*defaultButton = &MainWindow::FindIt;  // pressed by Enter

  // Calls f(name, control) for every control, in the order the eye follows.
  static void EachControl(auto& w, auto&& f) {
    f("Label14", w.Label14), f("Label2", w.Label2), f("Label1", w.Label1);
    f("LocDatabase", w.LocDatabase), f("InputText", w.InputText);
    f("Label5", w.Label5), f("Xdim", w.Xdim), f("Ydim", w.Ydim), f("Frame1", w.Frame1);
    f("FindIt", w.FindIt), f("Lookup", w.Lookup), f("Label15", w.Label15);
    f("LocText", w.LocText), f("NGRText", w.NGRText), f("EastNorth", w.EastNorth);
    f("SetHome", w.SetHome), f("GenList", w.GenList), f("Gmap", w.Gmap), f("OSMap", w.OSMap);
    f("UseNMEA", w.UseNMEA), f("LocSites", w.LocSites);
    f("LLText", w.LLText), f("LLfmt", w.LLfmt), f("Label4", w.Label4);
    f("BaseLocLbl", w.BaseLocLbl), f("SaveOnExit", w.SaveOnExit), f("Label10", w.Label10);
    f("Label3", w.Label3), f("MinDisttext", w.MinDisttext);
    f("Label7", w.Label7), f("MaxDistText", w.MaxDistText);
    f("Label8", w.Label8), f("FromBearText", w.FromBearText);
    f("Label9", w.Label9), f("ToBearText", w.ToBearText), f("MakeList", w.MakeList);
    f("Label13", w.Label13), f("Srchtext", w.Srchtext);
    f("Label11", w.Label11), f("ListFileName", w.ListFileName), f("ShowAll", w.ShowAll);
  }
};

// The Pointing window: the compass and the figures from the home station.
struct PointingWindow : Window {
  PointingWindow() : Window{.caption = "Pointing", .width = 4215, .height = 2610} {}

  TextBox Ipt{.readOnly = true};
  Label Label5{.caption = "Bearing", .visible = false};
  TextBox BearText{.fore = kRed, .readOnly = true, .visible = false};
  Label Label6{.caption = "Back Bearing", .visible = false};
  TextBox BackBearText{.fore = Rgb{192, 0, 192}, .readOnly = true, .visible = false};
  Label Label4{.caption = "Distance  km", .visible = false};
  TextBox DistText{.fore = Rgb{0, 128, 0}, .readOnly = true, .visible = false};
  Label Label12{.caption = "Accuracy", .visible = false};
  TextBox UncertText{.fore = Rgb{0, 128, 128}, .readOnly = true, .visible = false};
  PictureBox C{.visible = false};

  static void EachControl(auto& w, auto&& f) {
    f("Ipt", w.Ipt);
    f("Label5", w.Label5), f("BearText", w.BearText);
    f("Label6", w.Label6), f("BackBearText", w.BackBearText);
    f("Label4", w.Label4), f("DistText", w.DistText);
    f("Label12", w.Label12), f("UncertText", w.UncertText), f("C", w.C);
  }
};

// The Results window: what a lookup found.
struct ResultsWindow : Window {
  ResultsWindow() : Window{.width = 12465, .height = 6645} {}

  ListBox PR;
  Button OK{.caption = "OK", .visible = false};

  Button ResultsWindow::*defaultButton = &ResultsWindow::OK;

  static void EachControl(auto& w, auto&& f) { f("PR", w.PR), f("OK", w.OK); }
};

// The GPS set-up window.
struct SetUpWindow : Window {
  SetUpWindow() : Window{.caption = "GPS / NMEA  Setup", .width = 2910, .height = 3090} {}

  Label Label2{.caption = "COM Port"};
  ComboBox CPort;
  Label Label1{.caption = "Baud Rate"};
  ComboBox Baud{.text = "4800", .items = {"4800", "9600", "19200"}};
  Button Command1{.caption = "Open COM Port"};
  TextBox Text1{.readOnly = true, .manyLines = true};

  // What the receiver has sent since the last carriage return, by MSComm1_OnComm.
  std::string RxBuffer;

  static void EachControl(auto& w, auto&& f) {
    f("Label2", w.Label2), f("CPort", w.CPort), f("Label1", w.Label1), f("Baud", w.Baud);
    f("Command1", w.Command1), f("Text1", w.Text1);
  }
};
