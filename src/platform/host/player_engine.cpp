/*
 * Player engine of the desktop: there is none, so clips are not measured.
 *
 * A program that has an engine defines the same function itself, and the dynamic linker prefers it.
 */
#include "platform/player_engine.h"

MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *, Qvl_VideoDevice *)
{
    return nullptr;
}
