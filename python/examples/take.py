"""Takes an ordinary screen with the transition that is set on the device: take.py HOST PORT SCREEN"""

import sys

import tavoro

host, port, screen_id = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
with tavoro.Device(host, port) as wall:
    effect = wall.state.screens.find(screenType=1, screenId=screen_id).switchEffect.copy()
    wall.screen.write_take([{"screenId": screen_id, "screenType": 1, "switchEffect": effect}])
    print(f"{wall.name}: screen {screen_id} was taken.")
