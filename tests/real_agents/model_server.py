# SPDX-License-Identifier: MIT
"""Stands in for the model services of Claude Code and Codex, on the loopback address.

It speaks as much of two protocols as a turn of an agent takes, answered by server-sent events: the Messages API (POST
/v1/messages) and the Responses API (POST /v1/responses).

The model says a greeting. To a prompt with [[bash:COMMAND]] it has the agent run COMMAND and, once that has answered,
says so.
"""
import contextlib
import http.server
import json
import re
import threading
import uuid

MARK = re.compile(r"\[\[bash:(.*?)\]\]", re.S)
GREETING = "Hello from the stand-in."
DONE = "The command has answered. Done."


def new_id(prefix):
    return prefix + uuid.uuid4().hex[:24]


def next_step(pieces):
    """The command to run now, if any, and what to say otherwise. The pieces of the conversation are the texts of the
    user, and None for what a command has answered."""
    command, text = None, GREETING
    for piece in pieces:
        if piece is None:
            command, text = None, DONE
        elif MARK.search(piece):
            command = MARK.findall(piece)[-1]
    return command, text


def messages_pieces(body):
    for message in body["messages"]:
        if message["role"] == "user":
            content = message["content"]
            for block in [{"text": content}] if isinstance(content, str) else content:
                yield None if block.get("type") == "tool_result" else block.get("text", "")


def messages_events(body):
    command, text = next_step(messages_pieces(body))
    if command and body.get("tools"):  # not where only a title of the conversation is asked for
        reason, block = "tool_use", {"type": "tool_use", "id": new_id("toolu_"), "name": "Bash", "input": {}}
        arguments = {"command": command, "description": "Run a short command"}
        delta = {"type": "input_json_delta", "partial_json": json.dumps(arguments)}
    else:
        reason, block, delta = "end_turn", {"type": "text", "text": ""}, {"type": "text_delta", "text": text}
    yield {"type": "message_start",
           "message": {"id": new_id("msg_"), "type": "message", "role": "assistant", "model": body["model"],
                       "content": [], "stop_reason": None, "stop_sequence": None,
                       "usage": {"input_tokens": 10, "output_tokens": 12}}}
    yield {"type": "content_block_start", "index": 0, "content_block": block}
    yield {"type": "content_block_delta", "index": 0, "delta": delta}
    yield {"type": "content_block_stop", "index": 0}
    yield {"type": "message_delta", "delta": {"stop_reason": reason, "stop_sequence": None},
           "usage": {"output_tokens": 12}}
    yield {"type": "message_stop"}


def responses_pieces(body):
    for item in body["input"]:
        if item["type"].endswith("_output"):
            yield None
        elif item.get("role") == "user":
            yield "\n".join(block.get("text", "") for block in item["content"])


def responses_events(body):
    command, text = next_step(responses_pieces(body))
    if command:
        item = {"type": "function_call", "id": new_id("fc_"), "call_id": new_id("call_"), "name": "exec_command",
                "arguments": json.dumps({"cmd": command})}
    else:
        item = {"type": "message", "id": new_id("msg_"), "role": "assistant",
                "content": [{"type": "output_text", "text": text, "annotations": []}]}
    response = {"id": new_id("resp_"), "object": "response", "model": body["model"], "output": [item],
                "usage": {"input_tokens": 10, "output_tokens": 12, "total_tokens": 22}}
    yield {"type": "response.created", "response": response}
    yield {"type": "response.output_item.done", "output_index": 0, "item": {**item, "status": "completed"}}
    yield {"type": "response.completed", "response": {**response, "status": "completed"}}


class Handler(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_POST(self):
        body = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
        events = {"/v1/messages": messages_events, "/v1/responses": responses_events}.get(self.path.split("?")[0])
        if not events:
            return self.send_error(404)
        self.send_response(200)
        self.send_header("Content-Type", "text/event-stream")
        self.end_headers()
        for event in events(body):
            self.wfile.write(f"event: {event['type']}\ndata: {json.dumps(event)}\n\n".encode())
        return None


@contextlib.contextmanager
def model_server():
    """The address of a server that runs as long as the block."""
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    try:
        yield f"http://127.0.0.1:{server.server_address[1]}"
    finally:
        server.shutdown()
