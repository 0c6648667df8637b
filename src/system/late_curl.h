// SPDX-License-Identifier: MIT
// What the GETs call of libcurl.
#pragma once

#include <curl/curl.h>

#include "platform/late_library.h"

namespace requite {

inline constinit LateLibrary kCurlLibrary("libcurl.so.4");

REQUITE_LATE(kCurlLibrary, curl_easy_cleanup);
REQUITE_LATE(kCurlLibrary, curl_easy_init);
REQUITE_LATE(kCurlLibrary, curl_easy_setopt);
REQUITE_LATE(kCurlLibrary, curl_free);
REQUITE_LATE(kCurlLibrary, curl_global_init);
REQUITE_LATE(kCurlLibrary, curl_multi_add_handle);
REQUITE_LATE(kCurlLibrary, curl_multi_cleanup);
REQUITE_LATE(kCurlLibrary, curl_multi_info_read);
REQUITE_LATE(kCurlLibrary, curl_multi_init);
REQUITE_LATE(kCurlLibrary, curl_multi_remove_handle);
REQUITE_LATE(kCurlLibrary, curl_multi_setopt);
REQUITE_LATE(kCurlLibrary, curl_multi_socket_action);
REQUITE_LATE(kCurlLibrary, curl_slist_append);
REQUITE_LATE(kCurlLibrary, curl_slist_free_all);
REQUITE_LATE(kCurlLibrary, curl_url);
REQUITE_LATE(kCurlLibrary, curl_url_cleanup);
REQUITE_LATE(kCurlLibrary, curl_url_get);
REQUITE_LATE(kCurlLibrary, curl_url_set);

}  // namespace requite
