"""Rules that make a documentation site, each step hermetic: it reads its declared inputs and nothing else."""

TavidocRecordInfo = provider(
    "A compiled input.",
    fields = {
        "record": "the record file",
        "files": "depset of the files that the pages of the input may show: pictures",
    },
)

_tool = attr.label(
    default = "@tavidoc//:tavidoc-site",
    allow_single_file = True,
    executable = True,
    cfg = "host",
)

def _record_impl(ctx):
    record = ctx.actions.declare_file(ctx.label.name + ".tdr")
    arguments = ctx.actions.args()
    arguments.add("compile")
    arguments.add(ctx.file.src)
    arguments.add("-o", record)
    if ctx.attr.folder:
        arguments.add("--folder", ctx.attr.folder)
    ctx.actions.run(
        mnemonic = "TavidocCompile",
        progress_message = "Compiling %s" % ctx.file.src.short_path,
        executable = ctx.executable._tool,
        arguments = [arguments],
        inputs = [ctx.file.src] + ctx.files.data,
        outputs = [record],
    )
    return [
        DefaultInfo(files = depset([record])),
        TavidocRecordInfo(record = record, files = depset(ctx.files.data)),
    ]

tavidoc_record = rule(
    doc = "Compiles a markup source or a header into a record.",
    implementation = _record_impl,
    attrs = {
        "src": attr.label(doc = "the input", mandatory = True, allow_single_file = [".dg", ".h"]),
        "data": attr.label_list(doc = "what the input includes, presents, copies or shows", allow_files = True),
        "folder": attr.string(doc = "the folder of its pages in the site; the top unless given"),
        "_tool": _tool,
    },
)

def _run(ctx, verb, arguments, inputs, directory):
    """Runs a verb of the tool that writes the directory, and returns that."""
    output = ctx.actions.declare_directory(directory)
    ctx.actions.run(
        mnemonic = "Tavidoc" + verb.capitalize(),
        executable = ctx.executable._tool,
        arguments = [verb] + arguments + ["-o", output.path],
        inputs = inputs,
        outputs = [output],
    )
    return output

def _site_impl(ctx):
    records = [record[TavidocRecordInfo].record for record in ctx.attr.records]
    files = depset(transitive = [record[TavidocRecordInfo].files for record in ctx.attr.records] + [depset(ctx.files.data)])
    project = ctx.files.project
    inputs = project + files.to_list()
    paths = [file.path for file in project + records]
    link = _run(ctx, "link", paths, inputs + records, ctx.label.name + ".link")
    parts = [_run(ctx, "render", ["--link", link.path], inputs + [link], ctx.label.name + ".shared")]
    for index, record in enumerate(records):
        arguments = [record.path, "--link", link.path]
        parts.append(_run(ctx, "render", arguments, inputs + [record, link], "%s.pages/%d" % (ctx.label.name, index)))
    site = ctx.actions.declare_directory(ctx.label.name)
    ctx.actions.run_shell(
        mnemonic = "TavidocJoin",
        command = "for part in %s; do cp -R -L \"$part/.\" %s; done" % (" ".join([part.path for part in parts]), site.path),
        inputs = parts,
        outputs = [site],
    )
    return [DefaultInfo(files = depset([site]))]

tavidoc_site = rule(
    doc = "Links records and renders them into a directory.",
    implementation = _site_impl,
    attrs = {
        "records": attr.label_list(doc = "in the order of the contents", mandatory = True, providers = [TavidocRecordInfo]),
        "project": attr.label(doc = "the project file", allow_single_file = [".toml"]),
        "data": attr.label_list(doc = "what the project file names: logo, style sheet, assets", allow_files = True),
        "_tool": _tool,
    },
)
