# SPDX-License-Identifier: GPL-3.0-or-later
#
# Who offers the program, and where. The defaults are made up: whoever packages the program gives their own, such as
# -DTRACKWISE_DEVELOPER_NAME="Jo Doe".
set(TRACKWISE_DEVELOPER_NAME "The Trackwise developers" CACHE STRING "Who makes the program")
set(TRACKWISE_SUPPORT_ADDRESS "support@trackwise.example" CACHE STRING "Where mail about the program goes")
set(TRACKWISE_WEB_SITE "https://trackwise.example" CACHE STRING "Where the program is presented; no slash at the end")
set(TRACKWISE_STORE_HOST "store.trackwise.example" CACHE STRING "Web host of the store that the program is in")
set(TRACKWISE_APP_STORE_ID "1000000001" CACHE STRING "Identifier of the program in the store")
set(TRACKWISE_DEVELOPER_STORE_ID "1000000002" CACHE STRING "Identifier of the developer in the store")
