// The four windows as plain data. The initialisers are the state of a fresh window. The logic reads
// and writes the fields directly; the platform then shows what differs from what it last showed.
// Positions and sizes of windows are in twips, 1/1440 inch.
#pragma once

#include <string>

#include "workspace/record/controls.h"

// What every window has. `left` and `top` are the position of its frame.
struct Window {
  std::string caption{};
  float left = 0, top = 0, width = 0, height = 0;
  bool loaded = false;
  bool visible = false;
};

// Path of the site database unless the settings contain another one.
inline constexpr const char* kDefaultDatabase = "c:\\geog\\Sites.dat";

// The heights of the main window without and with the listing layout.
inline constexpr float kLookupHeight = 4700;
inline constexpr float kListingHeight = 6780;

// The captions of UseNMEA, which say what its next click does.
inline constexpr const char* kRealTimeCaption = "Real Time GPS";
inline constexpr const char* kPauseCaption = "Pause Real Time";
inline constexpr const char* kResumeCaption = "Resume real time";

// Tool tips that two controls share.
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
  TextBox LocText{.readOnly = true, .redIfCalculated = true, .tip = kCalculatedTip};
  TextBox NGRText{.readOnly = true, .redIfCalculated = true, .tip = kCalculatedTip};
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

  Button MainWindow::*defaultButton = &MainWindow::FindIt;  // Enter presses it
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
};

// The Results window: what a lookup found.
struct ResultsWindow : Window {
  ResultsWindow() : Window{.width = 12465, .height = 6645} {}

  ListBox PR;
  Button OK{.caption = "OK", .visible = false};

  Button ResultsWindow::*defaultButton = &ResultsWindow::OK;
};

// The GPS set-up window.
struct SetUpWindow : Window {
  SetUpWindow() : Window{.caption = "GPS / NMEA  Setup", .width = 2910, .height = 3090} {}

  Label Label2{.caption = "COM Port"};
  ComboBox CPort;
  Label Label1{.caption = "Baud Rate"};
  ComboBox Baud{.text = "4800", .items = {"4800", "9600", "19200"}};
  Button Command1{.caption = "Open COM Port"};
  TextArea Text1{{.readOnly = true}};

  // What the receiver has sent since the last carriage return; MSComm1_OnComm writes it.
  std::string RxBuffer;
};
