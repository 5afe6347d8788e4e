// The four windows as plain data. The initialisers are the state of a fresh window. Commands read
// and write the fields directly; after each user action the platform shows what changed.
#pragma once

#include <string>

#include "workspace/record/controls.h"

// The fields that all windows have.
struct Window {
  std::string caption{};        // title
  float left = 0, top = 0;      // position of its frame, twips (1/1440 inch)
  float width = 0, height = 0;  // size, twips
  bool loaded = false;          // a window that is not loaded is in its fresh state
  bool visible = false;
};

// The site database, unless the settings contain another path.
inline constexpr const char* kDefaultDatabase = "c:\\geog\\Sites.dat";

inline constexpr float kLookupHeight = 4700;   // twips, the main window in its lookup layout
inline constexpr float kListingHeight = 6780;  // twips, the main window in its listing layout

// The captions of UseNMEA: what its next click does.
inline constexpr const char* kRealTimeCaption = "Real Time GPS";
inline constexpr const char* kPauseCaption = "Pause Real Time";
inline constexpr const char* kResumeCaption = "Resume real time";

// Tool tips of two controls each.
inline constexpr const char* kCalculatedTip =
    "If this appears in red, it is a calculated value whose accuracy depends on the input "
    "information";
inline constexpr const char* kMakeListTip = "Generate a listing of all sites from this Base";

struct MainWindow : Window {
  MainWindow()
      : Window{.caption = "Sites, Distances and Bearings", .width = 7410, .height = 6945} {}

  // clang-format off
  Label Label14{.caption = "From Site Database, Locator,  NGR or free format Lat / Long", .fore = Rgb{0, 128, 0}};
  Label Label2{.caption = "Input data", .fore = Rgb{192, 64, 0}};
  Label Label1{.caption = "Location of Site database", .fore = Rgb{128, 128, 128}};
  TextBox LocDatabase{.text = kDefaultDatabase, .tip = "Insert full path and filename for the site database.  eg. C:\\geog\\sites.dat"};
  TextBox InputText{.fore = Rgb{128, 128, 128}, .tip = "Enter  Part of sitename,  Locator (6 or 8 char) ,   NGR (8 or 10 char) or Free format  Lat / Long.   Also mask for Database lookup"};  // the input box: text for Use This and for Lookup
  Label Label5{.caption = "Resolution", .fore = Rgb{0, 128, 128}};
  Label Xdim{.fore = Rgb{0, 128, 128}};  // width of the cell of the current place: "37m", or "~" if it is about a metre
  Label Ydim{.fore = Rgb{0, 128, 128}};  // height of that cell
  Frame Frame1;  // the cell, drawn beside its width and height
  Button FindIt{.caption = "&Use This"};
  Button Lookup{.caption = "&Lookup Database", .tip = "Search Site Database file. Optionally enter any portion or name or search string into Input data box or make sure Input data is blank"};
  Label Label15{.caption = "Loc                                         NGR", .fore = Rgb{192, 64, 0}};
  TextBox LocText{.readOnly = true, .redIfCalculated = true, .tip = kCalculatedTip};  // locator
  TextBox NGRText{.readOnly = true, .redIfCalculated = true, .tip = kCalculatedTip};  // National Grid reference
  TextBox EastNorth{.fore = Rgb{0, 128, 0}, .readOnly = true};  // easting and northing, m
  Button SetHome{.caption = "&Set as Home", .enabled = false, .tip = "Set this current site details as the base for distance and bearing calculation or printout"};
  Button GenList{.caption = "&Make a Listing File", .enabled = false, .tip = kMakeListTip};  // changes to the listing layout
  Button Gmap{.caption = "G-Maps", .tip = "Go to Google Maps for this site"};
  Button OSMap{.caption = "OS Map", .enabled = false, .tip = "OS Map JPG files must be stored in C:\\OS_Maps"};  // caption: the 10 km square of the current place, which names the map image
  Button UseNMEA{.caption = "GPS", .tip = "Read NMEA Data from serial port.  (GPRMC Message only)"};  // starts, pauses and resumes real-time mode
  Button LocSites{.caption = "List locals", .enabled = false, .tip = "Generate a list of sites within 20km of designated Home"};  // the listing with a largest distance of 20 km
  TextBox LLText{.readOnly = true};  // latitude and longitude in the layout of LLFormat
  Button LLfmt{.caption = "L/L Format", .tip = "Toggle through Lat/Long formatting"};
  Label Label4{.caption = "WGS84", .fore = Rgb{0, 0, 192}};
  Label BaseLocLbl{.fore = Rgb{192, 0, 0}, .back = Rgb{255, 192, 255}};  // banner with the home station
  CheckBox SaveOnExit{.caption = "Save Base on Exit"};
  // Visible in the listing layout only, except Label13.
  Label Label10{.caption = "Restrict printout for distance / bearing limits, or part of site name", .fore = Rgb{192, 64, 0}, .visible = false};
  Label Label3{.caption = "Min Distance", .visible = false};
  TextBox MinDisttext{.text = "0", .visible = false};  // km
  Label Label7{.caption = "Max Distance", .visible = false};
  TextBox MaxDistText{.text = "99999", .visible = false};  // km
  Label Label8{.caption = "Bearing From", .visible = false};
  TextBox FromBearText{.text = "0", .visible = false, .tip = "Left most bearing of sector"};  // degrees
  Label Label9{.caption = "through to  to bearing ", .visible = false};
  TextBox ToBearText{.text = "360", .visible = false, .tip = "Rightmost bearing for sector"};  // degrees
  Button MakeList{.caption = "Generate the File", .back = Rgb{255, 192, 192}, .visible = false, .tip = kMakeListTip};
  Label Label13{.caption = "Search String"};
  TextBox Srchtext{.visible = false, .tip = "Restrict listed sites to only those containing this search string"};  // part of the name of a site
  Label Label11{.caption = "List File name", .visible = false};
  TextBox ListFileName{.text = "c:\\geog\\SITELIST.TXT", .visible = false, .tip = "Insert full path and filename for the listing.  eg. C:\\geog\\SITELIST.TXT"};
  CheckBox ShowAll{.caption = "Show the results on screen", .checked = true, .tip = "Send distance and bering list to screen as well as to teh file specified"};  // its click empties ListFileName
  // clang-format on

  Button MainWindow::*defaultButton = &MainWindow::FindIt;  // Enter presses it
};

// Distance and bearing from the home station to the current place.
struct PointingWindow : Window {
  PointingWindow() : Window{.caption = "Pointing", .width = 4215, .height = 2610} {}

  // clang-format off
  TextBox Ipt{.readOnly = true};  // the current place as it was entered
  Label Label5{.caption = "Bearing", .visible = false};
  TextBox BearText{.fore = kRed, .readOnly = true, .visible = false};  // degrees, from the home station
  Label Label6{.caption = "Back Bearing", .visible = false};
  TextBox BackBearText{.fore = Rgb{192, 0, 192}, .readOnly = true, .visible = false};  // degrees, to the home station
  Label Label4{.caption = "Distance  km", .visible = false};
  TextBox DistText{.fore = Rgb{0, 128, 0}, .readOnly = true, .visible = false};  // km
  Label Label12{.caption = "Accuracy", .visible = false};
  TextBox UncertText{.fore = Rgb{0, 128, 128}, .readOnly = true, .visible = false};  // of distance and bearing
  PictureBox C{.visible = false};  // compass
  // clang-format on
};

// What a lookup found.
struct ResultsWindow : Window {
  ResultsWindow() : Window{.width = 12465, .height = 6645} {}

  ListBox PR;  // lines of the site database, cut at 28 characters
  Button OK{.caption = "OK", .visible = false};

  Button ResultsWindow::*defaultButton = &ResultsWindow::OK;  // Enter presses it
};

// The GPS set-up window.
struct SetUpWindow : Window {
  SetUpWindow() : Window{.caption = "GPS / NMEA  Setup", .width = 2910, .height = 3090} {}

  Label Label2{.caption = "COM Port"};
  ComboBox CPort;  // the ports that can be opened, as COM1
  Label Label1{.caption = "Baud Rate"};
  ComboBox Baud{.text = "4800", .items = {"4800", "9600", "19200"}};  // bits per second
  Button Command1{.caption = "Open COM Port"};  // opens the port and starts real-time mode
  TextArea Text1{{.readOnly = true}};           // message

  std::string RxBuffer;  // what the receiver sent since the last carriage return
};
