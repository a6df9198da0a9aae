#include "nexo/platform/CodePageTables.h"

#include <cstddef>
#include <string_view>

#include "nexo/platform/CodePage.h"

namespace nexo::platform {
namespace {

// Bytes 80 to FF, sixteen to a line.
constexpr std::u16string_view kUpper437 =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    u"áíóúñÑªº¿⌐¬½¼¡«»"
    u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
    u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    u"αßΓπΣσµτΦΘΩδ∞φε∩"
    u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";

constexpr std::u16string_view kUpper850 =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»"
    u"░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"
    u"ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´"
    u"\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";

// Bytes 80 to 9F; "?" marks the five undefined ones, which stand for the units of the same value.
constexpr std::u16string_view kMiddle1252 =
    u"€?‚ƒ„…†‡ˆ‰Š‹Œ?Ž?"
    u"?‘’“”•–—˜™š›œ?žŸ";

static_assert(kUpper437.size() == 128 && kUpper850.size() == 128 && kMiddle1252.size() == 32);

constexpr void SetByte(SingleBytePage& page, std::uint8_t& rows, unsigned int byte) {
    const auto unit = static_cast<std::uint32_t>(page.wide[byte]);
    std::uint8_t& row = page.blockOf[unit >> 8];
    if (row == 0) row = ++rows;
    page.bytes[row][unit & 0xFF] = static_cast<std::uint8_t>(byte);
}

// `special` replaces the units from byte 80 on; the rest stands for itself.
constexpr SingleBytePage MakePage(std::u16string_view special) {
    SingleBytePage page{};
    page.latin = special.size() == 32;
    for (unsigned int byte = 0; byte < 256; ++byte) {
        const bool replaced = byte >= 0x80 && byte - 0x80 < special.size() && special[byte - 0x80] != u'?';
        page.wide[byte] = static_cast<wchar_t>(replaced ? special[byte - 0x80] : byte);
    }
    for (unsigned int i = 0; i < 128; ++i) {
        const auto unit = static_cast<std::uint32_t>(page.wide[0x80 + i]);
        page.upper[0][i / 16][i % 16] = static_cast<std::uint8_t>(unit);
        page.upper[1][i / 16][i % 16] = static_cast<std::uint8_t>(unit >> 8);
    }
    std::uint8_t rows = 0;
    for (unsigned int byte = 0; byte < 256; ++byte) SetByte(page, rows, byte);
    return page;
}

constexpr SingleBytePage kPage437 = MakePage(kUpper437);
constexpr SingleBytePage kPage850 = MakePage(kUpper850);
constexpr SingleBytePage kPage1252 = MakePage(kMiddle1252);

// One mark with pairs of a letter and what it becomes: every composition that some code page holds.
struct MarkRow {
    char16_t mark;
    std::u16string_view pairs;
};

constexpr MarkRow kMarks[] = {
    {0x0300, u"AÀEÈIÌOÒUÙWẀYỲaàeèiìoòuùwẁyỳüǜ"},  // grave accent
    {0x0301,
     u"AÁCĆEÉIÍLĹNŃOÓRŔSŚUÚWẂYÝZŹaácćeéiílĺnńoórŕsśuúwẃyýzź¨΅üǘΑΆΕΈΗΉΙΊΟΌΥΎΩΏαάεέηήιίοό"
     u"υύωώϊΐϋΰГЃКЌгѓкќ"},                                          // acute accent
    {0x0302, u"AÂCĈEÊGĜHĤIÎJĴOÔSŜUÛWŴYŶaâcĉeêgĝhĥiîjĵoôsŝuûwŵyŷ"},  // circumflex accent
    {0x0303, u"AÃIĨNÑOÕUŨaãiĩnñoõuũ"},                              // tilde
    {0x0304, u"AĀEĒIĪOŌUŪaāeēiīoōuūüǖ"},                            // macron
    {0x0306, u"AĂGĞUŬaăgğuŭИЙУЎийуў"},                              // breve
    {0x0307, u"BḂCĊDḊEĖFḞGĠIİMṀPṖSṠTṪZŻbḃcċdḋeėfḟgġmṁpṗsṡtṫzż"},    // dot above
    {0x0308, u"AÄEËIÏOÖUÜWẄYŸaäeëiïoöuüwẅyÿΙΪΥΫιϊυϋІЇЕЁеёії"},      // diaeresis
    {0x030A, u"AÅUŮaåuů"},                                          // ring above
    {0x030B, u"OŐUŰoőuű"},                                          // double acute accent
    {0x030C, u"CČDĎEĚLĽNŇRŘSŠTŤZŽaǎcčdďeěiǐlľnňoǒrřsštťuǔzžüǚ"},    // caron
    {0x031B, u"OƠUƯoơuư"},                                          // horn
    {0x0326, u"SȘTȚsștț"},                                          // comma below
    {0x0327, u"CÇGĢKĶLĻNŅRŖSŞTŢcçgģkķlļnņrŗsştţ"},                  // cedilla
    {0x0328, u"AĄEĘIĮUŲaąeęiįuų"},                                  // ogonek
    {0x0338, u"<≮=≠>≯"},                                            // long solidus overlay
    {0x0653, u"\u0627\u0622"},                                      // arabic maddah above
    {0x0654, u"\u0627\u0623\u0648\u0624\u064A\u0626"},              // arabic hamza above
    {0x0655, u"\u0627\u0625"},                                      // arabic hamza below
    {0x3099,
     u"かがきぎくぐけげこごさざしじすずせぜそぞただちぢつづてでとどはばひびふぶへべほぼゝゞウヴカガキギクグケ"
     u"ゲコゴサザシジスズセゼソゾタダチヂツヅテデトドハバヒビフブ"
     u"ヘベホボヽヾ"},                                      // katakana-hiragana voiced sound mark
    {0x309A, u"はぱひぴふぷへぺほぽハパヒピフプヘペホポ"},  // katakana-hiragana semi-voiced sound mark
};

const MarkRow* FindMark(std::uint32_t unit) {
    if (unit < kMarks[0].mark) return nullptr;
    for (const MarkRow& row : kMarks)
        if (row.mark == unit) return &row;
    return nullptr;
}

}  // namespace

const SingleBytePage* FindSingleBytePage(unsigned int codePage) {
    switch (codePage) {
        case kCodePageOem437:
            return &kPage437;
        case kCodePageOem850:
            return &kPage850;
        case kCodePageWindows1252:
            return &kPage1252;
        default:
            return nullptr;
    }
}

bool IsCombiningMark(std::uint32_t unit) {
    return FindMark(unit) != nullptr;
}

std::uint32_t Compose(std::uint32_t base, std::uint32_t mark) {
    const MarkRow* row = FindMark(mark);
    if (row == nullptr) return 0;
    for (std::size_t i = 0; i < row->pairs.size(); i += 2)
        if (row->pairs[i] == base) return row->pairs[i + 1];
    return 0;
}

}  // namespace nexo::platform
