"""Sends a local file to a device, where it becomes the logo 1, and shows the progress: sendlogo.py HOST PORT FILE

Ctrl-C cancels the transfer.
"""

import sys

import tavoro

LOGO = 2


def show(progress: tavoro.Progress) -> None:
    """Shows the progress on the standard error."""
    print(f"{progress.share:.0%}", file=sys.stderr)


def main(host: str, port: int, path: str) -> int:
    """Returns the exit status."""
    try:
        with tavoro.Device(host, port) as wall:
            wall.file.send(path, type=LOGO, id=1, progress=show)
            for file in wall.updated_state().files.where(fileType=LOGO):
                print(f"logo {file.fileId}: {file.general.name}, {file.size.length} bytes")
    except tavoro.Failure as failure:
        print(failure.text)
        return 1
    except KeyboardInterrupt:
        print("cancelled")
        return 1
    return 0


sys.exit(main(sys.argv[1], int(sys.argv[2]), sys.argv[3]))
