// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace calyvox {

class ID3V2;
class MainWindow;
class MP3;
class V2Frame;

/// What the controls of the ID3V2 editor hold, by the controls' names, and how it comes from a file's frames
/// and goes into them. Only objects and the file's row change. In the single layout (SingleCOMMGenre)
/// "Comment", "Descriptor", Language and "TCONSingle" stand for COMMList and GenreList.
class ID3V2Fields {
public:
    ID3V2Fields();

    RowList GenreList;
    RowList COMMList; // columns of CommentList
    RowList CommInfoList;
    // Checked rows stay. A row's tag is the 1-based position of its frame, good until SaveTag.
    RowList POPMList;    // user, rating, counter
    RowList SupportList; // frame ID, content

    std::size_t Language; // row of LanguageRows(); stays from file to file
    bool CommRemoved = false;

    /// Of a text box; empty for one that was never set.
    const std::string& Text(const std::string& control) const;
    /// To be called for what the user changed alone: what a control cannot show, NULs and line breaks,
    /// stays as it was loaded.
    void SetText(const std::string& control, const std::string& text);
    /// Whether frames shown hold text that is not of the code page. It goes back byte by byte, but as text
    /// of the code page.
    bool HoldsUnicode() const { return holdsUnicode_; }

    /// All but Language.
    void ClearControls();
    /// From the file of a row into cleared controls. In the list layout a comment of an unknown language
    /// gets the default one, in its frame too, which makes the tag changed. A frame that fails is passed
    /// over; failure 5 ends the loading with a box.
    void LoadTag(MainWindow& window, std::size_t row);
    /// Every frame shown is made anew, in a fixed order, and goes behind the frames that are not shown;
    /// flagged ones go. The file is marked where the tag says something new. Once for each LoadTag.
    void SaveTag(MainWindow& window, std::size_t row);

    /// The language becomes the default one, then SaveTag.
    void btnOK_Click(MainWindow& window, std::size_t row);
    /// Takes the removal of comments back.
    static void btnCancel_Click(MP3& file);

private:
    /// Of the tag, or of the tag that is to be.
    static int VersionOf(const MP3& file);
    void ShowFrame(ID3V2& tag, V2Frame& frame, std::int64_t counter);
    bool ShowDate(const std::string& id, const std::string& content);
    void ShowPair(const std::string& control, const std::string& content);
    void ShowGenres(const std::string& content);
    void ShowComment(ID3V2& tag, V2Frame& frame);
    void ShowRating(V2Frame& frame, std::int64_t counter);
    void NoteEncoding(const V2Frame& frame);

    void AddNames(ID3V2& tag) const;
    void AddDates(ID3V2& tag, int version) const;
    void AddDetails(ID3V2& tag, int version) const;
    void AddAddresses(ID3V2& tag) const;
    void AddComments(ID3V2& tag) const;
    std::string PairText(const std::string& control) const;
    std::string DateText(const std::string& id) const;
    std::string GenreText() const;
    std::string ShownGenres() const;

    std::map<std::string, std::string> texts_;
    int version_ = 0;
    bool holdsUnicode_ = false;
    // Contents that their controls show in part, until these are changed: by frame ID.
    std::map<std::string, std::string> keptDates_;
    // The genres as they were shown first, and the content that they came from.
    std::string loadedGenres_;
    std::string genreContent_;
};

} // namespace calyvox
