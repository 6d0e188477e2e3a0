#include "support/fake_player_engine.h"

#include "platform/player_engine.h"

FakePlayerEngine::Behavior FakePlayerEngine::behavior;
FakePlayerEngine::Record FakePlayerEngine::record;

using namespace FakePlayerEngine;

namespace {

class Engine final : public MP_PlayerEngine
{
public:
    void destroy() override
    {
        ++record.destroyed;
        delete this;
    }

    bool open(const char *data, int size, const char *extension) override
    {
        ++record.opened;
        record.data = QByteArray(data, size);
        record.extension = extension;
        return behavior.opens;
    }

    void close() override { ++record.closed; }

    bool getStreamInfo(StaticStreamInfo *info) override
    {
        ++record.infos;
        if (behavior.fillsInfo)
            info->playDuration = behavior.duration;
        return behavior.hasInfo;
    }
};

} // namespace

void FakePlayerEngine::reset()
{
    behavior = Behavior();
    record = Record();
}

MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *audio, Qvl_VideoDevice *video)
{
    ++record.created;
    record.gotDevice = record.gotDevice || audio || video;
    return behavior.exists ? new Engine : nullptr;
}
