"""What is known about a device, as nested views that a program can only read."""

from __future__ import annotations

import copy
import difflib
import json
from collections.abc import Iterable, Iterator, Mapping, Sequence
from typing import Any, TypeVar, overload

Record = dict[str, Any]

KINDS = ("interfaces", "screens", "layers", "files")
"""The lists of objects of a device."""

PREVIEW = 2
PROGRAMME = 4
"""The scenes of a screen."""


def identity_of(kind: str, record: Mapping[str, Any]) -> dict[str, int]:
    """The keys that identify an object among those of its kind; empty for a device."""
    match kind:
        case "interfaces":
            return dict(record["interfaceId"])
        case "layers":
            return dict(record["layerIdenti"])
        case "screens":
            return {"screenType": record["screenType"], "screenId": record["screenId"]}
        case "files":
            return {"fileType": record["fileType"], "fileId": record["fileId"]}
    return {}


def _unknown_key(owner: str, key: str, keys: Iterable[str]) -> str:
    """What is wrong with a key, with a similar one of those that exist."""
    similar = difflib.get_close_matches(key.replace("_", ""), keys, n=1)
    suggestion = f'; did you mean "{similar[0]}"?' if similar else ""
    return f'{owner} does not have the key "{key}"{suggestion}'


def _view_of(value: Any) -> Any:
    if isinstance(value, dict):
        return View(value)
    if isinstance(value, list):
        return tuple(_view_of(element) for element in value)
    return value


class View(Mapping[str, Any]):
    """A record that can only be read: view.general.name, or view["general"]["name"].

    Lists are tuples. A view shows one moment; it does not change.
    """

    __slots__ = ("_record",)
    _record: Record

    def __init__(self, record: Record) -> None:
        object.__setattr__(self, "_record", record)

    def __getitem__(self, key: str) -> Any:
        return _view_of(self._record[key])

    def __getattr__(self, name: str) -> Any:
        try:
            return self[name]
        except KeyError:
            raise AttributeError(_unknown_key("the record", name, self._record)) from None

    def __setattr__(self, name: str, value: object) -> None:
        raise AttributeError("a view can only be read; call an operation to change the device")

    def __iter__(self) -> Iterator[str]:
        return iter(self._record)

    def __len__(self) -> int:
        return len(self._record)

    def __eq__(self, other: object) -> bool:
        if isinstance(other, View):
            return self._record == other._record
        if isinstance(other, dict):
            return self._record == other
        return NotImplemented

    def __repr__(self) -> str:
        return repr(self._record)

    def __reduce__(self) -> tuple[Any, ...]:
        return View, (self._record,)

    def __dir__(self) -> list[str]:
        return [*super().__dir__(), *self._record]

    def copy(self) -> Record:
        """A dictionary with the same values, to be changed and passed to an operation."""
        return copy.deepcopy(self._record)


ViewType = TypeVar("ViewType", bound=View)


class Objects(Sequence[ViewType]):
    """The objects of one kind, in the order of the device."""

    def __init__(self, kind: str, views: Sequence[ViewType]) -> None:
        self._kind = kind
        self._views = tuple(views)

    @overload
    def __getitem__(self, index: int) -> ViewType: ...
    @overload
    def __getitem__(self, index: slice) -> Sequence[ViewType]: ...
    def __getitem__(self, index: int | slice) -> ViewType | Sequence[ViewType]:
        return self._views[index]

    def __len__(self) -> int:
        return len(self._views)

    def __repr__(self) -> str:
        return repr(list(self._views))

    def where(self, **keys: object) -> Objects[ViewType]:
        """The objects with these values: where(screenId=1, screenType=1).

        The keys are those of the identity or of the record; others raise LookupError.
        """
        self._check_keys(keys)
        return Objects(self._kind, [view for view in self._views if self._matches(view, keys)])

    def find(self, **keys: object) -> ViewType:
        """The first object with these values, see where(). Raises LookupError if there is none."""
        self._check_keys(keys)
        for view in self._views:
            if self._matches(view, keys):
                return view
        raise LookupError(f"the device does not have an object with {keys} among its {self._kind}")

    def _check_keys(self, keys: Iterable[str]) -> None:
        for view in self._views[:1]:  # all records of a kind have the same keys
            known = {**identity_of(self._kind, view), **view}
            for key in keys:
                if key not in known:
                    raise LookupError(_unknown_key(f"a record of the {self._kind}", key, known))

    def _matches(self, view: View, keys: dict[str, object]) -> bool:
        identity = identity_of(self._kind, view)
        return all(identity.get(key, view.get(key)) == value for key, value in keys.items())


class ScreenView(View):
    """The record of a screen, with its layers."""

    __slots__ = ("_layers",)
    _layers: Objects[View]

    def __init__(self, record: Record, layers: Objects[View]) -> None:
        super().__init__(record)
        object.__setattr__(self, "_layers", layers)

    def __reduce__(self) -> tuple[Any, ...]:
        return ScreenView, (self._record, self._layers)

    @property
    def layers(self) -> Objects[View]:
        """The layers of all scenes."""
        return self._layers.where(screenType=self["screenType"], screenId=self["screenId"])

    @property
    def preview(self) -> Objects[View]:
        """The layers of the preview."""
        return self.layers.where(sceneType=PREVIEW)

    @property
    def programme(self) -> Objects[View]:
        """The layers of the programme."""
        return self.layers.where(sceneType=PROGRAMME)


class State:
    """What is known about a device at one moment. It does not change; Device.state returns a new one after a change."""

    def __init__(self, text: bytes) -> None:
        self._records: Record = json.loads(text)
        self._layers = Objects("layers", [View(record) for record in self._list("layers")])

    def _list(self, kind: str) -> list[Record]:
        records: list[Record] = self._records.get(kind, [])
        return records

    @property
    def session(self) -> View:
        """The connection: state, text, name, address, controlledByOthers, controlHolder.

        The state is "disconnected", "connecting", "reading", "ready" or "lost".
        """
        return View(self._records["session"])

    @property
    def device(self) -> View:
        """The record of the device as a whole."""
        return View(self._records.get("device", {}))

    @property
    def interfaces(self) -> Objects[View]:
        """Inputs and outputs."""
        return Objects("interfaces", [View(record) for record in self._list("interfaces")])

    @property
    def screens(self) -> Objects[ScreenView]:
        """The screens, each with its layers."""
        return Objects("screens", [ScreenView(record, self._layers) for record in self._list("screens")])

    @property
    def layers(self) -> Objects[View]:
        """The layers of all screens."""
        return self._layers

    @property
    def files(self) -> Objects[View]:
        """The files, without their contents."""
        return Objects("files", [View(record) for record in self._list("files")])

    def records(self) -> dict[tuple[str, tuple[int, ...]], Record]:
        """Each record by its kind and the values of its identity."""
        found: dict[tuple[str, tuple[int, ...]], Record] = {}
        for kind in ("session", "device"):
            if kind in self._records:
                found[kind, ()] = self._records[kind]
        for kind in KINDS:
            for record in self._list(kind):
                found[kind, tuple(identity_of(kind, record).values())] = record
        return found
