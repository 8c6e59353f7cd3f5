"""Renaming and moving what sources declare.

The edits come from the view of the trees, and not from the toolkit of the core: the view has the exact place of every
name that refers to something, also in the bodies of traits, behind `with` and in indexes, where the toolkit does not
look; it knows where names in backquotes end; and a reference can keep as many names as it was written with, where the
toolkit writes full names, so that a name that is given back leaves the sources as they were. The toolkit is asked all
the same when debugging: each place that it would change must be among those that are changed here.

What a name will mean afterwards is worked out beforehand, by the rules after which the core looks names up
(:mod:`slate.renaming.names`): so a change that gives a name another meaning is refused before anything is written.
What is written is loaded again and compared (:mod:`slate.renaming.snapshot`); what is not as it was is taken back.
"""
