# SPDX-License-Identifier: GPL-3.0-or-later
#
# Who offers the program, and where. The defaults are made up: whoever packages the program gives their own, such as
# -DTRACKWISE_DEVELOPER_NAME="Jo Doe".
set(TRACKWISE_DEVELOPER_NAME "The Trackwise developers" CACHE STRING "Who makes the program")
set(TRACKWISE_SUPPORT_ADDRESS "support@trackwise.example" CACHE STRING "Where mail about the program goes")
set(TRACKWISE_WEB_SITE "https://trackwise.example" CACHE STRING "Where the program is presented; no slash at the end")
