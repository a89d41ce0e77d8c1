// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include <string>
#include <vector>

namespace calyvox {

/// A box for a genre. A typed character completes to the first row that begins so, with the rest selected;
/// any other text can stand in it too. Qt completes and inserts nothing.
class GenreBox : public QComboBox {
    Q_OBJECT

public:
    explicit GenreBox(QWidget* parent = nullptr);

    /// Code page bytes. What stands in the box stays.
    void SetRows(const std::vector<std::string>& rows);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Complete(const QString& typed);

    std::vector<std::string> rows_;
    bool handsOn_ = false; // a key, to the line
};

} // namespace calyvox
