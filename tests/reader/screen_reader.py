"""What a screen reader finds of the program at the accessibility bus."""

import subprocess
import time

import pyatspi


class Reader:
    """Starts the program and reads it."""

    PATIENCE = 60

    def __init__(self, command):
        self.process = subprocess.Popen(command)
        self.program = self.wait(self._program, "the program at the bus")

    def close(self):
        self.process.terminate()
        return self.process.wait(self.PATIENCE)

    def _program(self):
        for program in pyatspi.Registry.getDesktop(0):
            if program is not None and program.get_process_id() == self.process.pid:
                return program if program.childCount > 0 else None
        return None

    def wait(self, look, what):
        """What `look` returns as soon as it is true."""
        end = time.monotonic() + self.PATIENCE
        while time.monotonic() < end:
            if self.process.poll() is not None:
                raise RuntimeError(f"the program ended with {self.process.returncode}")
            found = look()
            if found:
                return found
            time.sleep(0.05)
        raise AssertionError(f"waited in vain for {what}")

    def find(self, role, name, below=None, showing=True):
        """The objects of a role whose name begins so."""
        return [
            one
            for one in all_below(below or self.program)
            if one.getRoleName() == role
            and one.name.startswith(name)
            and (shows(one) or not showing)
        ]

    def one(self, role, name):
        """The one showing object of a role whose name begins so."""
        found = self.wait(lambda: self.find(role, name), f'the {role} "{name}"')
        assert len(found) == 1, f'{len(found)} times the {role} "{name}"'
        return found[0]

    def go_to(self, tab):
        """Chooses a tab; returns its page."""
        press(self.one("page tab", tab))
        return self.wait(lambda: self.page(tab), f"the page {tab}")

    def pages(self):
        """The pages by their names, shown or not."""
        stack = next(one for one in all_below(self.program) if one.getRoleName() == "layered pane")
        return {page.name: page for page in stack}

    def page(self, tab):
        page = self.pages().get(tab)
        return page if page is not None and shows(page) else None


def all_below(one):
    """Every object below one, in the order of the program."""
    for child in one:
        if child is not None:
            yield child
            yield from all_below(child)


def shows(one):
    return one.getState().contains(pyatspi.STATE_SHOWING)


def is_on(one):
    return one.getState().contains(pyatspi.STATE_CHECKED)


def actions(one):
    offered = one.queryAction()
    return {offered.getName(i): i for i in range(offered.nActions)}


def press(one):
    offered = actions(one)
    for name in ("Press", "Toggle", "SetFocus"):
        if name in offered and one.queryAction().doAction(offered[name]):
            return
    raise AssertionError(f"nothing to press at {one}: {list(offered)}")


def type_into(field, text):
    assert field.queryEditableText().setTextContents(text), f"nothing to type into at {field}"


def text_of(one):
    words = one.queryText()
    return words.getText(0, words.characterCount)


def label_of(one):
    """The name of what labels it."""
    for relation in one.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0).name
    return ""
