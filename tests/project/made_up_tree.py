# SPDX-License-Identifier: Apache-2.0
"""Small projects that the self-tests of the scripts here judge."""

import os


def write_tree(root, texts):
    """Writes the texts of files by their names below a folder."""
    for path, text in texts.items():
        file = os.path.join(root, path)
        os.makedirs(os.path.dirname(file), exist_ok=True)
        with open(file, "w", encoding="utf-8") as out:
            out.write(text)
