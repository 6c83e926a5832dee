#include "host/addressbook/ColumnNames.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace kvex::host {
namespace {

void expectKind(ColumnKind kind, std::initializer_list<const char *> headings) {
    for (const char *heading : headings) {
        EXPECT_EQ(columnKind(plainHeading(heading)), kind) << heading;
    }
}

TEST(ColumnNames, KnowNames) {
    expectKind(ColumnKind::fullName,
               {"Name", "Full name", "Display Name", "Contact name", "Contact", "Anzeigename",
                "Vollständiger Name", "Kontakt", "Nom complet", "Nom à afficher", "Nom affiché",
                "Nombre completo", "Nombre para mostrar", "नाम", "पूरा नाम", "संपर्क"});
    expectKind(ColumnKind::firstName, {"First name", "Given Name", "Forename", "Vorname", "Prénom",
                                       "Nombre", "Primer nombre", "पहला नाम", "प्रथम नाम"});
    expectKind(ColumnKind::middleName, {"Middle Name", "Additional Name", "Weitere Vornamen",
                                        "Deuxième prénom", "Segundo nombre", "मध्य नाम"});
    expectKind(ColumnKind::lastName,
               {"Last name", "Family Name", "Surname", "Nachname", "Familienname", "Nom",
                "Nom de famille", "Apellido", "Apellidos", "अंतिम नाम", "कुलनाम", "उपनाम"});
    expectKind(ColumnKind::organisation,
               {"Company", "Organization", "Organization Name", "Organisation",
                "Organization 1 - Name", "Firma", "Société", "Entreprise", "Empresa", "Compañía",
                "Organización", "कंपनी"});
}

TEST(ColumnNames, KnowMobileNumbers) {
    expectKind(ColumnKind::mobile,
               {"Mobile", "Mobile Phone", "Mobile number", "Mobile no.", "Mobile telephone",
                "Mobile phone number", "Cell", "Cell phone", "Cell number", "Cellular"});
    expectKind(ColumnKind::mobile,
               {"Mobil", "Mobiltelefon", "Mobilnummer", "Mobilfunk", "Mobilfunknummer",
                "Mobil-Tel.-Nr.", "Mobiltelefonnummer", "Handy", "Handynummer"});
    expectKind(ColumnKind::mobile,
               {"Tél. mobile", "Téléphone mobile", "Téléphone portable", "Tél. portable",
                "Portable", "N mobile", "N° de mobile", "Numéro de mobile", "Numéro de portable"});
    expectKind(ColumnKind::mobile,
               {"Móvil", "Teléfono móvil", "Tel. móvil", "Celular", "Teléfono celular",
                "Número de móvil", "Número de celular", "मोबाइल", "मोबाइल नंबर", "मोबाइल फ़ोन",
                "मोबाइल फोन", "मोबाइल नं.", "मोबाइल संख्या"});
}

TEST(ColumnNames, KnowNumbersOfNoParticularKind) {
    expectKind(ColumnKind::phone, {"Phone",
                                   "Phone 1",
                                   "Phone number",
                                   "Phone no.",
                                   "Primary Phone",
                                   "Main phone",
                                   "Telephone",
                                   "Telephone number",
                                   "Tel",
                                   "Number",
                                   "MSISDN",
                                   "Telefon",
                                   "Telefonnummer",
                                   "Telefon-Nr.",
                                   "Rufnummer",
                                   "Nummer",
                                   "Haupttelefon",
                                   "Numéro de téléphone",
                                   "N° de téléphone",
                                   "Téléphone principal",
                                   "Numéro",
                                   "Teléfono",
                                   "Número de teléfono",
                                   "Teléfono principal",
                                   "फ़ोन",
                                   "फ़ोन",
                                   "फोन नंबर",
                                   "टेलीफ़ोन",
                                   "दूरभाष",
                                   "नंबर"});
}

TEST(ColumnNames, KnowNumbersOfHomeAndWork) {
    expectKind(ColumnKind::homePhone, {"Home Phone",
                                       "Home Phone 2",
                                       "Home number",
                                       "Home telephone",
                                       "Telefon (privat)",
                                       "Telefon (privat 2)",
                                       "Tel. privat",
                                       "Privat",
                                       "Téléphone (domicile)",
                                       "Téléphone 2 (domicile)",
                                       "Tél. domicile",
                                       "Domicile",
                                       "Teléfono particular",
                                       "Teléfono de casa",
                                       "Particular",
                                       "Casa",
                                       "Home",
                                       "घर का फ़ोन",
                                       "होम फ़ोन",
                                       "घर"});
    expectKind(ColumnKind::workPhone, {"Work Phone",
                                       "Work number",
                                       "Business Phone",
                                       "Business Phone 2",
                                       "Office phone",
                                       "Work telephone",
                                       "Telefon geschäftlich",
                                       "Telefon dienstlich",
                                       "Tel. dienstlich",
                                       "Telefon Arbeit",
                                       "Geschäftlich",
                                       "Arbeit",
                                       "Téléphone (bureau)",
                                       "Téléphone 2 (bureau)",
                                       "Tél. bureau",
                                       "Téléphone professionnel",
                                       "Bureau",
                                       "Professionnel",
                                       "Teléfono del trabajo",
                                       "Teléfono trabajo",
                                       "Teléfono de oficina",
                                       "Trabajo",
                                       "Work",
                                       "Business",
                                       "Office",
                                       "कार्यालय फ़ोन",
                                       "व्यवसाय फ़ोन",
                                       "कार्यालय",
                                       "ऑफिस फ़ोन"});
    expectKind(ColumnKind::otherPhone,
               {"Other Phone", "Car Phone", "Weiteres Telefon", "Autotelefon", "Autre téléphone",
                "Otro teléfono", "अन्य फ़ोन"});
}

TEST(ColumnNames, DoNotKnowOtherColumns) {
    expectKind(ColumnKind::unknown,
               {"", "2", "E-mail", "Business Fax", "Home Fax", "Pager", "Assistant's Phone",
                "Phones", "Mobile 0", "Mobile 12", "Notes"});
}

TEST(ColumnNames, IgnoreCaseAccentsBlanksAndMarks) {
    EXPECT_EQ(plainHeading(" ÁÀÂÄ ÉÈÊË ÍÎÏ Ñ ÓÒÔÖ ÚÙÛÜ Ç "), u"aaaaeeeeiiinoooouuuuc");
    EXPECT_EQ(plainHeading("a\u0300z\u036F\u0371"), u"az\u0371");
    EXPECT_EQ(plainHeading("A_B-C.(9)`{@[/:\u00A0\u2013\u2019\u2070\u00C6"), u"abc9\u2070\u00E6");
}

TEST(ColumnNames, KnowLabels) {
    EXPECT_EQ(labelKind("* Mobile"), ColumnKind::mobile);
    EXPECT_EQ(labelKind("HOME"), ColumnKind::homePhone);
    EXPECT_EQ(labelKind("Geschäftlich"), ColumnKind::workPhone);
    EXPECT_EQ(labelKind("Main"), ColumnKind::phone);
    EXPECT_EQ(labelKind(""), ColumnKind::phone);
    EXPECT_EQ(labelKind("Boat"), ColumnKind::otherPhone);
    EXPECT_EQ(labelKind("Company"), ColumnKind::otherPhone);
    for (const char *machine : {"Home Fax", "Pager", "Télécopie", "फ़ैक्स"}) {
        EXPECT_EQ(labelKind(machine), ColumnKind::unknown) << machine;
    }
}

} // namespace
} // namespace kvex::host
