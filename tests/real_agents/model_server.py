# SPDX-License-Identifier: MIT
"""Stands in for the model services of Claude Code and Codex, on the loopback address.

It speaks as much of two protocols as one turn of an agent needs: the Messages API (POST /v1/messages and
/v1/messages/count_tokens) and the Responses API (POST /v1/responses, answered by server-sent events).

What the model says is chosen by the last mark in the user's prompt. Without one it says a greeting; with
[[bash:COMMAND]] it has the agent run COMMAND and, once that has answered, says so.
"""
import contextlib
import gzip
import http.server
import json
import re
import threading
import time
import uuid

MARK = re.compile(r"\[\[bash:(.*?)\]\]", re.S)
GREETING = "Hello from the stand-in."
DONE = "The command has answered. Done."


def new_id(prefix):
    return prefix + uuid.uuid4().hex[:24]


def text_of(content):
    """The text of a message, which is either a text or a list of blocks."""
    if isinstance(content, str):
        return content
    return "\n".join(block.get("text") or "" for block in content or [] if isinstance(block, dict))


def wish(pieces):
    """The command asked for last and not answered yet: pieces are ("words", text) and ("answer", "")."""
    command, answered = None, False
    for kind, text in pieces:
        if kind == "answer":
            answered = True
        elif MARK.search(text):
            command, answered = MARK.findall(text)[-1], False
    return command, answered


# The Messages API


def messages_pieces(body):
    for message in body.get("messages") or []:
        if message.get("role") != "user":
            continue
        content = message.get("content")
        for block in content if isinstance(content, list) else [{"text": content}]:
            is_answer = block.get("type") == "tool_result"
            yield ("answer", "") if is_answer else ("words", block.get("text") or "")


def messages_block(body):
    """The one block of the model's message."""
    command, answered = wish(messages_pieces(body))
    has_shell = any(tool.get("name") == "Bash" for tool in body.get("tools") or [])
    if command is None or answered or not has_shell:
        return {"type": "text", "text": DONE if answered else GREETING}
    return {"type": "tool_use", "id": new_id("toolu_"), "name": "Bash",
            "input": {"command": command, "description": "Run a short command"}}


def messages_reply(body, block):
    return {"id": new_id("msg_"), "type": "message", "role": "assistant",
            "model": body.get("model", "stand-in"), "content": [block],
            "stop_reason": "tool_use" if block["type"] == "tool_use" else "end_turn",
            "stop_sequence": None,
            "usage": {"input_tokens": 10, "output_tokens": 12, "cache_creation_input_tokens": 0,
                      "cache_read_input_tokens": 0}}


def messages_events(reply):
    block = reply["content"][0]
    if block["type"] == "text":
        empty, delta = {**block, "text": ""}, {"type": "text_delta", "text": block["text"]}
    else:
        empty = {**block, "input": {}}
        delta = {"type": "input_json_delta", "partial_json": json.dumps(block["input"])}
    yield {"type": "message_start", "message": {**reply, "content": [], "stop_reason": None}}
    yield {"type": "content_block_start", "index": 0, "content_block": empty}
    yield {"type": "content_block_delta", "index": 0, "delta": delta}
    yield {"type": "content_block_stop", "index": 0}
    yield {"type": "message_delta", "delta": {"stop_reason": reply["stop_reason"], "stop_sequence": None},
           "usage": {"output_tokens": 12}}
    yield {"type": "message_stop"}


# The Responses API


def responses_pieces(body):
    items = body.get("input") or []
    for item in [{"role": "user", "content": items}] if isinstance(items, str) else items:
        if str(item.get("type", "")).endswith("_output"):
            yield "answer", ""
        elif item.get("role") == "user":
            yield "words", text_of(item.get("content"))


def shell_call(tools, command):
    """The call of whichever tool this version of the agent offers for commands; None without one."""
    arguments = {"exec_command": {"cmd": command}, "shell_command": {"command": command},
                 "shell": {"command": ["sh", "-c", command]}}
    for name, value in arguments.items():
        if name in tools:
            return {"type": "function_call", "id": new_id("fc_"), "status": "completed",
                    "call_id": new_id("call_"), "name": name, "arguments": json.dumps(value)}
    if tools.get("exec", {}).get("type") == "custom":  # takes a piece of JavaScript
        script = f"const r = await tools.exec_command({{cmd: {json.dumps(command)}}});\ntext(r.output);\n"
        return {"type": "custom_tool_call", "id": new_id("ctc_"), "status": "completed",
                "call_id": new_id("call_"), "name": "exec", "input": script}
    return None


def responses_item(body):
    """The one item of the model's answer."""
    wanted = (body.get("text") or {}).get("format") or {}
    if wanted.get("type") == "json_schema":  # Codex asks for a title of the conversation
        members = (wanted.get("schema") or {}).get("properties") or {}
        text = json.dumps({name: "A title" for name in members})
    else:
        command, answered = wish(responses_pieces(body))
        tools = {tool.get("name") or tool.get("type"): tool for tool in body.get("tools") or []}
        call = None if command is None or answered else shell_call(tools, command)
        if call:
            return call
        text = DONE if answered else GREETING
    return {"type": "message", "id": new_id("msg_"), "role": "assistant", "status": "completed",
            "content": [{"type": "output_text", "text": text, "annotations": []}]}


def responses_events(body, item):
    response = {"id": new_id("resp_"), "object": "response", "created_at": int(time.time()),
                "model": body.get("model", "stand-in"), "output": []}
    started = {**item, "status": "in_progress"}
    if item["type"] == "message":
        started["content"] = []
    yield {"type": "response.created", "response": {**response, "status": "in_progress"}}
    yield {"type": "response.output_item.added", "output_index": 0, "item": started}
    if item["type"] == "message":
        yield {"type": "response.output_text.delta", "item_id": item["id"], "output_index": 0,
               "content_index": 0, "delta": item["content"][0]["text"]}
    yield {"type": "response.output_item.done", "output_index": 0, "item": item}
    usage = {"input_tokens": 10, "input_tokens_details": {"cached_tokens": 0}, "output_tokens": 12,
             "output_tokens_details": {"reasoning_tokens": 0}, "total_tokens": 22}
    yield {"type": "response.completed",
           "response": {**response, "status": "completed", "output": [item], "usage": usage}}


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def reply(self, status, value):
        data = json.dumps(value).encode()
        self.send_response(status)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", str(len(data)))
        self.end_headers()
        if self.command != "HEAD":
            self.wfile.write(data)

    def stream(self, events):
        self.send_response(200)
        self.send_header("Content-Type", "text/event-stream")
        self.send_header("Connection", "close")
        self.end_headers()
        self.close_connection = True
        for event in events:
            self.wfile.write(f"event: {event['type']}\ndata: {json.dumps(event)}\n\n".encode())

    def refuse(self):
        if self.path.split("?")[0].endswith("/models"):
            self.reply(200, {"object": "list", "data": [], "models": []})
        else:
            self.reply(404, {"type": "error", "error": {"type": "not_found_error", "message": "not offered"}})

    do_GET = do_HEAD = do_PUT = do_DELETE = do_PATCH = refuse

    def do_POST(self):
        raw = self.rfile.read(int(self.headers.get("Content-Length") or 0))
        if self.headers.get("Content-Encoding") == "gzip":
            raw = gzip.decompress(raw)
        path = self.path.split("?")[0]
        if path.endswith("/messages/count_tokens"):
            return self.reply(200, {"input_tokens": 10})
        body = json.loads(raw or b"{}")
        if path.endswith("/messages"):
            reply = messages_reply(body, messages_block(body))
            return self.stream(messages_events(reply)) if body.get("stream") else self.reply(200, reply)
        if path.endswith("/responses"):
            return self.stream(responses_events(body, responses_item(body)))
        return self.refuse()


@contextlib.contextmanager
def model_server():
    """The address of a server that runs as long as the block."""
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    threading.Thread(target=server.serve_forever, daemon=True).start()
    try:
        yield f"http://127.0.0.1:{server.server_address[1]}"
    finally:
        server.shutdown()
