#include "workbench/render/Words.h"

namespace ostrand {

namespace {

struct Entry {
  PanelWord word;
  const char* en;
  const char* fi;
  const char* sv;
  const char* de;
};

// clang-format off
constexpr Entry kWords[] = {
    {PanelWord::NotRead,         "Not read yet",                       "Ei vielä luettu",                         "Inte läst ännu",                          "Noch nicht gelesen"},
    {PanelWord::Read,            "Read from the device",               "Luettu laitteesta",                       "Läst från enheten",                       "Vom Gerät gelesen"},
    {PanelWord::ReadFailed,      "Reading failed",                     "Luku epäonnistui",                        "Läsningen misslyckades",                  "Lesen fehlgeschlagen"},
    {PanelWord::Edited,          "Edited",                             "Muutettu",                                "Ändrad",                                  "Geändert"},
    {PanelWord::Wrong,           "Wrong value",                        "Virheellinen arvo",                       "Felaktigt värde",                         "Falscher Wert"},
    {PanelWord::Corrected,       "Corrected",                          "Korjattu",                                "Rättad",                                  "Berichtigt"},
    {PanelWord::Waiting,         "Another value waits to be written",  "Toinen arvo odottaa kirjoitusta",         "Ett annat värde väntar på skrivning",     "Ein anderer Wert wartet aufs Schreiben"},
    {PanelWord::Accepted,        "Accepted, not written",              "Hyväksytty, ei kirjoitettu",              "Godkänt, inte skrivet",                   "Übernommen, nicht geschrieben"},
    {PanelWord::ReadOnly,        "Read only",                          "Vain luku",                               "Skrivskyddad",                            "Nur lesbar"},
    {PanelWord::HeldBack,        "Held back: goes by its own button",  "Ei lähde muiden mukana: oma painike",     "Hålls tillbaka: skickas med egen knapp",  "Zurückgehalten: geht mit eigener Taste"},
    {PanelWord::Limits,          "Limits",                             "Rajat",                                   "Gränser",                                 "Grenzen"},
    {PanelWord::AtLeast,         "at least",                           "vähintään",                               "minst",                                   "mindestens"},
    {PanelWord::AtMost,          "at most",                            "enintään",                                "högst",                                   "höchstens"},
    {PanelWord::Parameter,       "Parameter",                          "Parametri",                               "Parameter",                               "Parameter"},
    {PanelWord::RawValue,        "Raw value",                          "Raaka-arvo",                              "Råvärde",                                 "Rohwert"},
    {PanelWord::LastRead,        "Last read",                          "Viimeksi luettu",                         "Senast läst",                             "Zuletzt gelesen"},
    {PanelWord::Never,           "never",                              "ei koskaan",                              "aldrig",                                  "nie"},
    {PanelWord::Unchecked,       "off",                                "pois",                                    "av",                                      "aus"},
    {PanelWord::Checked,         "on",                                 "päällä",                                  "på",                                      "ein"},
    {PanelWord::NothingHere,     "Nothing to show",                    "Ei näytettävää",                          "Inget att visa",                          "Nichts anzuzeigen"},
    {PanelWord::OnDevice,        "device",                             "laite",                                   "enhet",                                   "Gerät"},
    {PanelWord::ZoomToSamples,   "Zoom to the samples",                "Zoomaa näytteisiin",                      "Zooma till proverna",                     "Auf die Proben zoomen"},
    {PanelWord::UndoZoom,        "Undo zoom",                          "Peru zoomaus",                            "Ångra zoomning",                          "Zoom aufheben"},
    {PanelWord::Maximize,        "Maximise",                           "Suurenna",                                "Maximera",                                "Maximieren"},
    {PanelWord::CopyPicture,     "Copy picture",                       "Kopioi kuva",                             "Kopiera bilden",                          "Bild kopieren"},
    {PanelWord::SavePng,         "Save as picture (PNG)…",             "Tallenna kuvana (PNG)…",                  "Spara som bild (PNG)…",                   "Als Bild speichern (PNG)…"},
    {PanelWord::SavePdf,         "Save as PDF…",                       "Tallenna PDF-tiedostona…",                "Spara som PDF…",                          "Als PDF speichern…"},
    {PanelWord::SaveCsv,         "Save values (CSV)…",                 "Tallenna arvot (CSV)…",                   "Spara värdena (CSV)…",                    "Werte speichern (CSV)…"},
    {PanelWord::Print,           "Print…",                             "Tulosta…",                                "Skriv ut…",                               "Drucken…"},
    {PanelWord::Chart,           "Chart",                              "Kaavio",                                  "Diagram",                                 "Diagramm"},
};
// clang-format on

}  // namespace

QString word(PanelWord word, const std::string& language) {
  for (const Entry& entry : kWords)
    if (entry.word == word)
      return QString::fromUtf8(language == "fi" ? entry.fi : language == "sv" ? entry.sv : language == "de" ? entry.de : entry.en);
  return {};
}

}  // namespace ostrand
