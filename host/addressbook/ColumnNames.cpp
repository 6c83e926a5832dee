#include "host/addressbook/ColumnNames.h"

#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <span>

namespace kvex::host {
namespace {

using Text = std::u16string_view;
using Names = std::span<const Text>;

constexpr Text fullNames[]{
    u"name",        u"fullname",          u"displayname",       u"contactname", u"contact",
    u"anzeigename", u"vollstandigername", u"kontakt",           u"nomcomplet",  u"nomaafficher",
    u"nomaffiche",  u"nombrecompleto",    u"nombreparamostrar", u"नाम",         u"पूरानाम",
    u"संपर्क"};
constexpr Text firstNames[]{u"firstname", u"givenname",    u"forename", u"vorname", u"prenom",
                            u"nombre",    u"primernombre", u"पहलानाम",  u"प्रथमनाम"};
constexpr Text middleNames[]{u"middlename",     u"additionalname", u"weiterevornamen",
                             u"deuxiemeprenom", u"segundonombre",  u"मध्यनाम"};
constexpr Text lastNames[]{u"lastname",     u"familyname", u"surname",      u"nachname",
                           u"familienname", u"nom",        u"nomdefamille", u"apellido",
                           u"apellidos",    u"अंतिमनाम",    u"कुलनाम",        u"उपनाम"};
constexpr Text organisations[]{u"company",      u"organization",      u"organizationname",
                               u"organisation", u"organization1name", u"firma",
                               u"societe",      u"entreprise",        u"empresa",
                               u"compania",     u"organizacion",      u"कंपनी"};
constexpr Text mobiles[]{u"mobile",
                         u"mobilephone",
                         u"mobilenumber",
                         u"mobileno",
                         u"mobiletelephone",
                         u"mobilephonenumber",
                         u"cell",
                         u"cellphone",
                         u"cellnumber",
                         u"cellular",
                         u"mobil",
                         u"mobiltelefon",
                         u"mobilnummer",
                         u"mobilfunk",
                         u"mobilfunknummer",
                         u"mobiltelnr",
                         u"mobiltelefonnummer",
                         u"handy",
                         u"handynummer",
                         u"telmobile",
                         u"telephonemobile",
                         u"telephoneportable",
                         u"telportable",
                         u"portable",
                         u"nmobile",
                         u"ndemobile",
                         u"numerodemobile",
                         u"numerodeportable",
                         u"movil",
                         u"telefonomovil",
                         u"telmovil",
                         u"celular",
                         u"telefonocelular",
                         u"numerodemovil",
                         u"numerodecelular",
                         u"मोबाइल",
                         u"मोबाइलनंबर",
                         u"मोबाइलफोन",
                         u"मोबाइलनं",
                         u"मोबाइलसंख्या"};
constexpr Text phones[]{u"phone",
                        u"phonenumber",
                        u"phoneno",
                        u"primaryphone",
                        u"mainphone",
                        u"telephone",
                        u"telephonenumber",
                        u"tel",
                        u"number",
                        u"msisdn",
                        u"telefon",
                        u"telefonnummer",
                        u"telefonnr",
                        u"rufnummer",
                        u"nummer",
                        u"haupttelefon",
                        u"numerodetelephone",
                        u"ndetelephone",
                        u"telephoneprincipal",
                        u"numero",
                        u"telefono",
                        u"numerodetelefono",
                        u"telefonoprincipal",
                        u"फोन",
                        u"फोननंबर",
                        u"टेलीफोन",
                        u"दूरभाष",
                        u"नंबर"};
constexpr Text homePhones[]{u"homephone",
                            u"homenumber",
                            u"hometelephone",
                            u"telefonprivat",
                            u"telprivat",
                            u"privat",
                            u"telephonedomicile",
                            u"telephone2domicile",
                            u"teldomicile",
                            u"domicile",
                            u"telefonoparticular",
                            u"telefonodecasa",
                            u"particular",
                            u"casa",
                            u"home",
                            u"घरकाफोन",
                            u"होमफोन",
                            u"घर"};
constexpr Text workPhones[]{u"workphone",
                            u"worknumber",
                            u"businessphone",
                            u"officephone",
                            u"worktelephone",
                            u"telefongeschaftlich",
                            u"telefondienstlich",
                            u"teldienstlich",
                            u"telefonarbeit",
                            u"geschaftlich",
                            u"arbeit",
                            u"telephonebureau",
                            u"telephone2bureau",
                            u"telbureau",
                            u"telephoneprofessionnel",
                            u"bureau",
                            u"professionnel",
                            u"telefonodeltrabajo",
                            u"telefonotrabajo",
                            u"telefonodeoficina",
                            u"trabajo",
                            u"work",
                            u"business",
                            u"office",
                            u"कार्यालयफोन",
                            u"व्यवसायफोन",
                            u"कार्यालय",
                            u"ऑफिसफोन"};
constexpr Text otherPhones[]{u"otherphone",     u"carphone",     u"weiterestelefon", u"autotelefon",
                             u"autretelephone", u"otrotelefono", u"अन्यफोन"};

struct Kind {
    ColumnKind kind;
    Names names;
};
constexpr Kind kinds[]{
    {ColumnKind::fullName, fullNames},
    {ColumnKind::firstName, firstNames},
    {ColumnKind::middleName, middleNames},
    {ColumnKind::lastName, lastNames},
    {ColumnKind::organisation, organisations},
    {ColumnKind::mobile, mobiles},
    {ColumnKind::phone, phones},
    {ColumnKind::homePhone, homePhones},
    {ColumnKind::workPhone, workPhones},
    {ColumnKind::otherPhone, otherPhones},
};

/// Removes the accent of a letter. It knows the letters of the headings. A lone accent or nukta
/// gives 0.
char16_t withoutAccent(char16_t unit) {
    constexpr Text accented = u"áàâäéèêëíîïñóòôöúùûüç\u095E";
    constexpr Text plain = u"aaaaeeeeiiinoooouuuuc\u092B";
    static_assert(accented.size() == plain.size());
    if ((unit >= u'\u0300' && unit <= u'\u036F') || unit == u'\u093C') {
        return u'\0';
    }
    const std::size_t at = accented.find(unit);
    return at == Text::npos ? unit : plain[at];
}

bool isMark(char16_t unit) {
    const bool isAscii = unit < 0x80;
    const bool isLetter = unit >= u'a' && unit <= u'z';
    const bool isDigit = unit >= u'0' && unit <= u'9';
    const bool isPunctuation = (unit >= 0x80 && unit <= 0xBF) || (unit >= 0x2000 && unit <= 0x206F);
    return (isAscii && !isLetter && !isDigit) || isPunctuation;
}

} // namespace

std::u16string plainHeading(std::string_view heading) {
    std::u16string plain = foldCase(fromUtf8(heading));
    std::ranges::transform(plain, plain.begin(), withoutAccent);
    std::erase_if(plain, isMark);
    return plain;
}

ColumnKind columnKind(std::u16string_view plainHeading) {
    if (!plainHeading.empty() && plainHeading.back() >= u'1' && plainHeading.back() <= u'9') {
        plainHeading.remove_suffix(1);
    }
    const auto *const found = std::ranges::find_if(kinds, [&](const Kind &kind) {
        return std::ranges::find(kind.names, plainHeading) != kind.names.end();
    });
    return found == std::end(kinds) ? ColumnKind::unknown : found->kind;
}

ColumnKind labelKind(std::string_view label) {
    const std::u16string plain = plainHeading(label);
    constexpr Text machines[]{u"fax", u"pager", u"telecop", u"फैक्स"};
    if (std::ranges::any_of(
            machines, [&](Text machine) { return plain.find(machine) != std::u16string::npos; })) {
        return ColumnKind::unknown;
    }
    if (plain.empty() || plain == u"main") {
        return ColumnKind::phone;
    }
    const ColumnKind kind = columnKind(plain);
    return kind < ColumnKind::mobile ? ColumnKind::otherPhone : kind;
}

} // namespace kvex::host
