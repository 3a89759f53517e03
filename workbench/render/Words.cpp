#include "workbench/render/Words.h"

namespace ostrand {

namespace {

struct Entry {
  Word word;
  const char* en;
  const char* fi;
  const char* sv;
  const char* de;
};

// clang-format off
constexpr Entry kWords[] = {
    {Word::NotRead,     "Not read yet",                       "Ei vielä luettu",                        "Inte läst ännu",                         "Noch nicht gelesen"},
    {Word::Read,        "Read from the device",               "Luettu laitteesta",                      "Läst från enheten",                      "Vom Gerät gelesen"},
    {Word::ReadFailed,  "Reading failed",                     "Luku epäonnistui",                       "Läsningen misslyckades",                 "Lesen fehlgeschlagen"},
    {Word::Edited,      "Edited",                             "Muutettu",                               "Ändrad",                                 "Geändert"},
    {Word::Wrong,       "Wrong value",                        "Virheellinen arvo",                      "Felaktigt värde",                        "Falscher Wert"},
    {Word::Corrected,   "Corrected",                          "Korjattu",                               "Rättad",                                 "Berichtigt"},
    {Word::Waiting,     "Another value waits to be written",  "Toinen arvo odottaa kirjoitusta",        "Ett annat värde väntar på skrivning",    "Ein anderer Wert wartet aufs Schreiben"},
    {Word::Accepted,    "Accepted, not written",              "Hyväksytty, ei kirjoitettu",             "Godkänt, inte skrivet",                  "Übernommen, nicht geschrieben"},
    {Word::ReadOnly,    "Read only",                          "Vain luku",                              "Skrivskyddad",                           "Nur lesbar"},
    {Word::HeldBack,    "Held back: goes by its own button",  "Ei lähde muiden mukana: oma painike",    "Hålls tillbaka: skickas med egen knapp", "Zurückgehalten: geht mit eigener Taste"},
    {Word::Limits,      "Limits",                             "Rajat",                                  "Gränser",                                "Grenzen"},
    {Word::AtLeast,     "at least",                           "vähintään",                              "minst",                                  "mindestens"},
    {Word::AtMost,      "at most",                            "enintään",                               "högst",                                  "höchstens"},
    {Word::Parameter,   "Parameter",                          "Parametri",                              "Parameter",                              "Parameter"},
    {Word::RawValue,    "Raw value",                          "Raaka-arvo",                             "Råvärde",                                "Rohwert"},
    {Word::LastRead,    "Last read",                          "Viimeksi luettu",                        "Senast läst",                            "Zuletzt gelesen"},
    {Word::Never,       "never",                              "ei koskaan",                             "aldrig",                                 "nie"},
    {Word::Unchecked,   "off",                                "pois",                                   "av",                                     "aus"},
    {Word::Checked,     "on",                                 "päällä",                                 "på",                                     "ein"},
    {Word::NothingHere, "Nothing to show",                    "Ei näytettävää",                         "Inget att visa",                         "Nichts anzuzeigen"},
    {Word::OnDevice,    "device",                             "laite",                                  "enhet",                                  "Gerät"},
    {Word::Waits,       "waits",                              "odottaa",                                "väntar",                                 "wartet"},
};
// clang-format on

}  // namespace

QString word(Word word, const std::string& language) {
  for (const Entry& entry : kWords)
    if (entry.word == word) return QString::fromUtf8(language == "fi" ? entry.fi : language == "sv" ? entry.sv : language == "de" ? entry.de : entry.en);
  return {};
}

}  // namespace ostrand
