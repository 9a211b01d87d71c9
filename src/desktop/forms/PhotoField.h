// The photo of a person in a form.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <optional>

#include <desktop/details/Face.h>
#include <desktop/forms/KeptParts.h>
#include <people/Person.h>

namespace orvo::desktop {

// Shows it round. The user chooses a file, drops or pastes a picture, or takes the photo away; what
// can't be read is told beside it and changes nothing. A photo that is only a link isn't fetched.
class PhotoField : public QWidget, public KeptParts {
public:
    // The face stands where there is no photo that can be shown.
    PhotoField(const std::optional<PersonPhoto>& given, const Face& face);

    // What the photo becomes; one without bytes where it was taken away. Nothing where it stays.
    const std::optional<PersonPhoto>& Edit() const { return m_edit; }
    const std::optional<PersonPhoto>& Shown() const { return m_edit ? m_edit : m_given; }
    // As if it had been made with that photo; the user's own stays with `keepsMine`.
    void Give(const std::optional<PersonPhoto>& given, bool keepsMine);

    QJsonValue Kept() const override;
    void ShowKept(const QJsonValue& kept) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void LayOut();
    void Choose();
    void Paste();
    void Remove();
    // Takes the picture, or says the problem where there is none.
    void Take(const QImage& image, const QString& problem);
    void ShowPhoto();
    const PersonPhoto* Present() const;
    QString Remark(bool isSeen) const;
    QPixmap Picture(const QImage& photo) const;

    std::optional<PersonPhoto> m_given;
    std::optional<PersonPhoto> m_edit;
    Face m_face;
    QToolButton m_button;
    QPushButton m_remove;
    QLabel m_remark;
};

}  // namespace orvo::desktop
