#pragma once

#include "sender/clientMessage.h"
#include "sender/outcome.h"
#include "tests/model/senderScene.h"

#include <optional>

namespace qvTest {

// Runs the tool in this process, from its first line to its last, inside the scene. The program is
// linked with --wrap for the calls of System V shared memory, usleep, isatty and
// __xpg_strerror_r: the scene answers them, where tests of the segment alone script answers call by
// call. The segment is allocated to its exact size, and freed when the tool unmaps it.
SenderRun runTool(SenderScene const& scene);

// The outcome that both fronts of the tool get when they send the message inside the scene.
std::optional<Outcome> sendInScene(SenderScene const& scene, ClientMessage const& message);

} // namespace qvTest
