// Sounds through the system's sound device.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>

class QSoundEffect;

namespace orvo {

// At most one sound plays at a time. The QApplication must live longer.
class QtSound {
public:
    QtSound();
    ~QtSound();
    QtSound(const QtSound&) = delete;
    QtSound& operator=(const QtSound&) = delete;

    // Starts to play the file, of the form WAV, in place of what is playing.
    // Returns:  false where there is no sound device.
    bool Play(const QString& path);
    void Stop();

private:
    std::unique_ptr<QSoundEffect> m_effect;
};

}  // namespace orvo
