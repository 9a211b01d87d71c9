// Sounds through the system's sound device.
// SPDX-License-Identifier: MIT
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include <platform/qt/QtSound.h>

namespace orvo {

QtSound::QtSound() = default;
QtSound::~QtSound() = default;

// Without a device an effect would wait for one without end.
bool QtSound::Play(const QString& path) {
    Stop();
    if (QMediaDevices::defaultAudioOutput().isNull()) return false;
    m_effect = std::make_unique<QSoundEffect>();
    m_effect->setSource(QUrl::fromLocalFile(path));
    m_effect->play();
    return true;
}

void QtSound::Stop() {
    m_effect.reset();
}

}  // namespace orvo
