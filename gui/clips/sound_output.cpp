#include "clips/sound_output.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QMediaDevices>

namespace {

constexpr int BufferMs = 200;

class DeviceOutput : public SoundOutput
{
public:
    DeviceOutput(const QAudioDevice &device, const QAudioFormat &format) : m_sink(device, format)
    {
        m_sink.setBufferSize(format.bytesForDuration(qint64(BufferMs) * 1000));
        m_target = m_sink.start();
    }

    qsizetype freeOctets() const override { return m_target ? m_sink.bytesFree() : 0; }

    void write(QByteArrayView samples) override
    {
        if (m_target)
            m_target->write(samples.data(), samples.size());
    }

    void setPlaying(bool isPlaying) override
    {
        if (isPlaying)
            m_sink.resume();
        else
            m_sink.suspend();
    }

private:
    QAudioSink m_sink;
    QIODevice *m_target = nullptr; // the sink's; null without a device
};

} // namespace

std::unique_ptr<SoundOutput> SoundOutput::open(const Sound::Form &form)
{
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(form.rate);
    format.setChannelCount(form.channels);
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull() || !device.isFormatSupported(format))
        return nullptr;
    return std::make_unique<DeviceOutput>(device, format);
}
