#include "RefreshState.h"

//  status              idle        connecting   downloading  success      conn. error  down. error  queue error
//  connect failed      CONN_ERROR  CONN_ERROR   CONN_ERROR   CONN_ERROR   CONN_ERROR   CONN_ERROR   CONN_ERROR
//  downloading         DOWNLOADING (in every state)
//  download failed     -           DOWN_ERROR   DOWN_ERROR   -            -            -            -
//  done                DOWN_SUCCESS (in every state)
//  connecting          CONNECTING  CONNECTING   DOWNLOADING  CONNECTING   CONNECTING   CONNECTING   CONNECTING
//  any other           as it was
std::optional<RefreshState> stateAfter(RefreshState state, int status)
{
    using enum RefreshState;
    switch (status) {
    case STATUS_CONNECT_FAILED:
        return CONN_ERROR;
    case STATUS_DOWNLOADING:
        return DOWNLOADING;
    case STATUS_DOWNLOAD_FAILED:
        // A failure that comes late, when the run is over or was never seen, is nobody's concern any more.
        if (state == CONNECTING || state == DOWNLOADING)
            return DOWN_ERROR;
        return std::nullopt;
    case STATUS_DONE:
        return DOWN_SUCCESS;
    case STATUS_CONNECTING:
        // Also how a hidden run is brought back, which must not set a download back.
        return state == DOWNLOADING ? DOWNLOADING : CONNECTING;
    default:
        return state;
    }
}
