"""The files of the repository, without what a build leaves behind. Needs no version control to be installed."""
import pathlib

SKIPPED_FOLDERS = ("build", ".git", ".cache", "__pycache__")


def is_skipped(name):
    return name in SKIPPED_FOLDERS or name.startswith("build-")


def repository_files(root):
    """Paths relative to the root, sorted. Corpora are left out: they hold data, not text."""
    pending, found = [pathlib.Path(root)], []
    while pending:
        for entry in pending.pop().iterdir():
            if is_skipped(entry.name) or entry.is_symlink():
                continue
            if entry.is_dir():
                if entry.name != "corpus":
                    pending.append(entry)
            else:
                found.append(entry.relative_to(root).as_posix())
    return sorted(found)


def is_source(path):
    """True for what is written for a compiler or an interpreter; false for prose and data."""
    name = path.rsplit("/", 1)[-1]
    suffix = name.rsplit(".", 1)[-1] if "." in name else ""
    if suffix:
        return suffix in ("h", "cpp", "py", "sh", "cmake", "in", "map", "json") or name == "CMakeLists.txt"
    return path.startswith("tools/") or path == ".ci/run"
