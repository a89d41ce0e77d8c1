// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/clsBrowse.h"

#include "app/forms/Dialogs.h"
#include "app/forms/FolderView.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace calyvox {

clsBrowse::clsBrowse(const FolderRequest& request, QWidget* parent)
    : QDialog(parent), tree_(new FolderView(this)) {
    constexpr QSize kSize(380, 460);
    setWindowTitle(Dialogs::TagText(request.Caption));
    auto* layout = new QVBoxLayout(this);
    for (const std::string& text : {request.Title, request.StatusText}) {
        if (text.empty()) continue;
        auto* label = new QLabel(Dialogs::NameText(text), this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setBuddy(tree_);
        layout->addWidget(label);
    }
    tree_->setObjectName(QStringLiteral("Folders"));
    tree_->setAccessibleName(Dialogs::TagText(request.Title));
    layout->addWidget(tree_, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(kSize);
    const bool hasEnd = request.StartPath.ends_with('\\');
    tree_->SelectPath(request.StartPath.substr(0, request.StartPath.size() - (hasEnd ? 1 : 0)));
    tree_->setFocus();
}

std::string clsBrowse::Path() const { return tree_->Path().empty() ? "\\" : tree_->Path(); }

} // namespace calyvox
