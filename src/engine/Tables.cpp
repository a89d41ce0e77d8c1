// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/Tables.h"

#include "platform/CodePage.h"

#include <string_view>

namespace calyvox {

namespace {

constexpr std::string_view kBitRates = "999,999,999,999,999,999,"
                                       "032,032,032,032,008,008,"
                                       "064,048,040,048,016,016,"
                                       "096,056,048,056,024,024,"
                                       "128,064,056,064,032,032,"
                                       "160,080,064,080,040,040,"
                                       "192,096,080,096,048,048,"
                                       "224,112,096,112,056,056,"
                                       "256,128,112,128,064,064,"
                                       "288,160,128,144,080,080,"
                                       "320,192,160,160,096,096,"
                                       "352,224,192,176,112,112,"
                                       "384,256,224,192,128,128,"
                                       "416,320,256,224,144,144,"
                                       "448,384,320,256,160,160,"
                                       "999,999,999,999,999,999,";

constexpr std::string_view kFrequencies = "44100,22050,11025,"
                                          "48000,24000,12000,"
                                          "32000,16000,08000,"
                                          "99999,99999,99999,";

constexpr std::string_view kGenres =
    "Blues,Classic Rock,Country,Dance,Disco,Funk,Grunge,Hip-Hop,Jazz,Metal,New Age,"
    "Oldies,Other,Pop,R&B,Rap,Reggae,Rock,Techno,Industrial,Alternative,Ska,"
    "Death Metal,Pranks,Soundtrack,Euro-Techno,Ambient,Trip-Hop,Vocal,Jazz+Funk,Fusion,Trance,Classical,"
    "Instrumental,Acid,House,Game,Sound Clip,Gospel,Noise,AlternRock,Bass,Soul,Punk,"
    "Space,Meditative,Instrumental Pop,Instrumental Rock,Ethnic,Gothic,Darkwave,Techno-Industrial,Electronic,"
    "Pop-Folk,Eurodance,"
    "Dream,Southern Rock,Comedy,Cult,Gangsta,Top 40,Christian Rap,Pop & Funk,Jungle,Native American,Cabaret,"
    "New Wave,Psychadelic,Rave,Showtunes,Trailer,Lo-Fi,Tribal,Acid Punk,Acid Jazz,Polka,Retro,"
    "Musical,Rock & Roll,Hard Rock,Folk,Folk-Rock,National Folk,Swing,Fast Fusion,Bebob,Latin,Revival,"
    "Celtic,Bluegrass,Avantgarde,Gothic Rock,Progressive Rock,Psychedelic Rock,Symphonic Rock,Slow Rock,"
    "Big Band,Chorus,Easy Listening,"
    "Acoustic,Humour,Speech,Chanson,Opera,Chamber Music,Sonata,Symphony,Booty Bass,Primus,Porn Groove,"
    "Satire,Slow Jam,Club,Tango,Samba,Folklore,Ballad,Power Ballad,Rhythmic Soul,Freestyle,Duet,"
    "Punk Rock,Drum Solo,A capella,Euro-House,Dance Hall,";

constexpr std::string_view kFrameIDs =
    "TPE1,TPE2,TPE3,TPE4,TIT1,TIT2,TIT3,COMM,TALB,TRCK,TBPM,TCOM,TCON,TCOP,TDAT,TDLY,TENC,TEXT,TFLT,TIME,"
    "TKEY,TLAN,TLEN,TMED,TOAL,TRDA,TRSN,TRSO,TSIZ,TSRC,TSSE,TYER,TXXX,WCOM,WCOP,WOAF,WOAR,WOAS,WORS,WPAY,"
    "WPUB,WXXX,TOPE,TORY,TOWN,TPOS,TPUB,TOFN,TOLY,USLT,AENC,APIC,COMR,ENCR,EQUA,ETCO,GEOB,GRID,IPLS,LINK,"
    "MCDI,MLLT,OWNE,PRIV,PCNT,POPM,POSS,RBUF,RVAD,RVRB,SYLT,SYTC,UFID,USER,ASPI,EQU2,RVA2,SEEK,SIGN,TDEN,"
    "TDOR,TDRC,TDRL,TDTG,TIPL,TMCL,TMOO,TPRO,TSOA,TSOP,TSOT,TSST,";

// Split at every comma; a list that ends in one has an empty last entry.
std::vector<std::string> Split(std::string_view list) {
    std::vector<std::string> entries;
    for (std::size_t comma = list.find(','); comma != std::string_view::npos; comma = list.find(',')) {
        entries.emplace_back(list.substr(0, comma));
        list.remove_prefix(comma + 1);
    }
    entries.emplace_back(list);
    return entries;
}

// Six entries a row: MPEG-1 Layer I, II, III, then MPEG-2 Layer I, II, III. Rows 0 and 15 keep the index
// right and are not copied.
void BuildBitRates(EngineTables& tables) {
    const std::vector<std::string> entries = Split(kBitRates);
    for (std::size_t row = 1; row <= 14; ++row)
        for (std::size_t j = 0; j < 3; ++j) {
            tables.BitRateTable[row][7 - j] =
                static_cast<std::int16_t>(CodePage::LeadingNumber(entries[row * 6 + j]));
            tables.BitRateTable[row][3 - j] =
                static_cast<std::int16_t>(CodePage::LeadingNumber(entries[row * 6 + 3 + j]));
        }
}

void BuildFrequencies(EngineTables& tables) {
    constexpr std::array<std::size_t, 3> kVersionCodes = {3, 2, 0};
    const std::vector<std::string> entries = Split(kFrequencies);
    for (std::size_t index = 0; index < 4; ++index)
        for (std::size_t j = 0; j < kVersionCodes.size(); ++j)
            tables.FrequencyTable[kVersionCodes[j]][index] = CodePage::LeadingLong(entries[index * 3 + j]);
}

EngineTables& TheTables() {
    static EngineTables tables;
    return tables;
}

} // namespace

const EngineTables& Tables() { return TheTables(); }

void BuildTables() {
    EngineTables& tables = TheTables();
    BuildBitRates(tables);
    BuildFrequencies(tables);
    tables.GenreNames = Split(kGenres);
    tables.FrameIDList.clear();
    for (const std::string& id : Split(kFrameIDs))
        if (!id.empty()) tables.FrameIDList += id + '\0';
}

} // namespace calyvox
