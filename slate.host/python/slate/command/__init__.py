"""The command ``slate``."""
